#include "Transfer.h"

#include <algorithm>
#include <limits>

namespace ostrel {

using namespace std::chrono;

namespace {

/// The library counts milliseconds in an int.
constexpr milliseconds longestTimeout(std::numeric_limits<int>::max() - 1000);

/// The library rounds what has passed up or down: without the extra millisecond it may give up
/// before the time is over.
long optionFor(milliseconds timeout)
{
    return static_cast<long>(timeout.count() + 1);
}

} // namespace

Transfer::Transfer(milliseconds timeout)
    : m_timeout(std::clamp(timeout, milliseconds(1), longestTimeout))
{
}

CURL *Transfer::begin(const TrustStore &trustStore)
{
    m_clockStart = Clock::now();
    return beginAt(m_clockStart, trustStore);
}

CURL *Transfer::beginAnew(const TrustStore &trustStore)
{
    if (!m_hasBegunAnew) {
        m_hasBegunAnew = true;
        return begin(trustStore);
    }
    return beginAt(Clock::now(), trustStore);
}

void Transfer::end(CURLcode code, Clock::time_point now)
{
    report(code, elapsed(code, now));
}

void Transfer::setExtraTime(milliseconds extra)
{
    curl_easy_setopt(m_handle.get(), CURLOPT_TIMEOUT_MS, optionFor(timeLeft() + extra));
}

QString Transfer::errorText(CURLcode code) const
{
    const char *detail = m_errorBuffer.data();
    const QString text = QString::fromUtf8(*detail != '\0' ? detail : curl_easy_strerror(code));
    return text.simplified();
}

CURL *Transfer::beginAt(Clock::time_point now, const TrustStore &trustStore)
{
    m_lastBeginning = now;
    m_errorBuffer.front() = '\0';
    m_handle.reset(curl_easy_init());
    if (m_handle != nullptr) {
        setCommonOptions(timeLeft());
        setUp(m_handle.get(), trustStore);
    }
    return m_handle.get();
}

void Transfer::setCommonOptions(milliseconds timeout)
{
    CURL *easy = m_handle.get();
    const long count = optionFor(timeout);
    curl_easy_setopt(easy, CURLOPT_PRIVATE, this);
    curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, m_errorBuffer.data());
    curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, count);
    // The library's own bound of five minutes may be shorter than the whole time-out.
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, count);
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, 1L);
    curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(easy, CURLOPT_DNS_CACHE_TIMEOUT, 0L);
    // Without it, giving up on a look-up waits for the resolver's own time-out and holds up every
    // other transfer.
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
}

milliseconds Transfer::timeLeft() const
{
    const auto spent = floor<milliseconds>(m_lastBeginning - m_clockStart);
    return std::max(m_timeout - spent, milliseconds(1));
}

microseconds Transfer::elapsed(CURLcode code, Clock::time_point now) const
{
    // The library's clock stops when a transfer succeeds; ours also counts the others that were
    // served in the same turn of the loop. But the library's isn't stopped by every failure: after
    // a failed look-up it shows the time at which the look-up began.
    if (code != CURLE_OK)
        return duration_cast<microseconds>(now - m_clockStart);
    curl_off_t sinceLastBeginning = 0;
    curl_easy_getinfo(m_handle.get(), CURLINFO_TOTAL_TIME_T, &sinceLastBeginning);
    return duration_cast<microseconds>(m_lastBeginning - m_clockStart) +
           microseconds(sinceLastBeginning);
}

} // namespace ostrel
