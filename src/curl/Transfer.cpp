#include "Transfer.h"

#include <QRegularExpression>

#include <algorithm>
#include <arpa/inet.h>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <netinet/in.h>

using namespace Qt::StringLiterals;

namespace ostrel {

using namespace std::chrono;

namespace {

/// The library counts milliseconds in an int.
constexpr milliseconds longestTimeout(std::numeric_limits<int>::max() - 1000);

/// The library rounds the elapsed time up or down: without the extra millisecond it may give up
/// before the time is over.
long optionFor(milliseconds timeout)
{
    return static_cast<long>(timeout.count() + 1);
}

QByteArray textOf(const sockaddr_storage &address)
{
    std::array<char, INET6_ADDRSTRLEN> text{};
    const void *bytes =
        address.ss_family == AF_INET6
            ? static_cast<const void *>(&reinterpret_cast<const sockaddr_in6 &>(address).sin6_addr)
            : &reinterpret_cast<const sockaddr_in &>(address).sin_addr;
    return inet_ntop(address.ss_family, bytes, text.data(), text.size());
}

/// In the library's format: "host:port:address,address".
QByteArray entryFor(const Place &place, const std::vector<sockaddr_storage> &addresses)
{
    QByteArrayList texts;
    for (const sockaddr_storage &address : addresses)
        texts.append(textOf(address));
    return place.host + ':' + QByteArray::number(place.port) + ':' + texts.join(',');
}

} // namespace

Transfer::Transfer(milliseconds timeout)
    : m_timeout(std::clamp(timeout, milliseconds(1), longestTimeout))
{
}

void Transfer::admit()
{
    m_lastAdmission = Clock::now();
    m_clockStart = m_lastAdmission - m_spent;
}

CURL *Transfer::begin(const Surroundings &surroundings, const LookUps &lookUps)
{
    m_lastBeginning = Clock::now();
    m_errorBuffer.front() = '\0';
    if (!m_handle) {
        m_handle.reset(curl_easy_init());
        if (!m_handle)
            return nullptr;
        setCommonOptions();
        setUp(m_handle.get());
    }
    setTimeout(timeLeft());
    setAddresses(lookUps);
    setUpHop(m_handle.get(), surroundings);
    return m_handle.get();
}

bool Transfer::goesOn(CURLcode code)
{
    if (!takeNextHop(code))
        return false;
    m_spent = Clock::now() - m_clockStart;
    return true;
}

void Transfer::end(CURLcode code, Clock::time_point now)
{
    if (code == CURLE_OPERATION_TIMEDOUT)
        countWholeTime(now);
    report(code, elapsed(code, now));
}

void Transfer::endWithoutAddress(const Name &name)
{
    const QByteArray kind = name.isProxy ? "proxy" : "host";
    setErrorText("Could not resolve " + kind + ": " + name.place.host);
    end(name.isProxy ? CURLE_COULDNT_RESOLVE_PROXY : CURLE_COULDNT_RESOLVE_HOST, Clock::now());
}

void Transfer::endInLookUp()
{
    const auto now = Clock::now();
    const auto spent = floor<milliseconds>(now - m_clockStart).count();
    setErrorText("Resolving timed out after " + QByteArray::number(qint64(spent)) +
                 " milliseconds");
    report(CURLE_OPERATION_TIMEDOUT, elapsed(CURLE_OPERATION_TIMEDOUT, now));
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

void Transfer::setErrorText(const QByteArray &text)
{
    qstrncpy(m_errorBuffer.data(), text.constData(), m_errorBuffer.size());
}

/// The library knows only the last hop's time, and not that of a look-up.
void Transfer::countWholeTime(Clock::time_point now)
{
    if (m_lastBeginning - m_clockStart < milliseconds(1))
        return;
    static const QRegularExpression count(u"after [0-9]+ m"_s);
    const auto whole = floor<milliseconds>(now - m_clockStart).count();
    QString text = QString::fromUtf8(m_errorBuffer.data());
    setErrorText(text.replace(count, u"after %1 m"_s.arg(whole)).toUtf8());
}

curl_socket_t Transfer::openSocket(void *self, curlsocktype purpose, curl_sockaddr *address)
{
    Q_UNUSED(purpose)
    auto *transfer = static_cast<Transfer *>(self);
    if (!transfer->mayConnectTo(address->addr))
        return CURL_SOCKET_BAD;
    transfer->restoreScope(*address);
    const int number = socket(address->family, address->socktype, address->protocol);
    // Child processes must not inherit it.
    fcntl(number, F_SETFD, FD_CLOEXEC);
    return number;
}

/// A link-local address is useless without its network interface, which the library doesn't pass
/// on.
void Transfer::restoreScope(curl_sockaddr &address) const
{
    if (address.family != AF_INET6)
        return;
    auto &asked = reinterpret_cast<sockaddr_in6 &>(address.addr);
    for (const sockaddr_storage &found : m_addresses) {
        const auto &known = reinterpret_cast<const sockaddr_in6 &>(found);
        if (found.ss_family == AF_INET6 && asked.sin6_scope_id == 0 &&
            std::memcmp(&known.sin6_addr, &asked.sin6_addr, sizeof(in6_addr)) == 0)
            asked.sin6_scope_id = known.sin6_scope_id;
    }
}

void Transfer::setCommonOptions()
{
    CURL *easy = m_handle.get();
    curl_easy_setopt(easy, CURLOPT_PRIVATE, this);
    curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, m_errorBuffer.data());
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_FRESH_CONNECT, 1L);
    curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, openSocket);
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETDATA, this);
    curl_easy_setopt(easy, CURLOPT_DNS_CACHE_TIMEOUT, 0L);
    // In case a look-up is left to the library after all: without this, giving up on one waits for
    // the resolver's own time-out and blocks every other transfer.
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
}

void Transfer::setTimeout(milliseconds timeout)
{
    const long count = optionFor(timeout);
    curl_easy_setopt(m_handle.get(), CURLOPT_TIMEOUT_MS, count);
    // The library's own limit of five minutes may be shorter than the whole time-out.
    curl_easy_setopt(m_handle.get(), CURLOPT_CONNECTTIMEOUT_MS, count);
}

void Transfer::setAddresses(const LookUps &lookUps)
{
    m_resolved.reset();
    m_addresses.clear();
    for (std::size_t i = 0; i < lookUps.size(); ++i) {
        const std::vector<sockaddr_storage> &found = lookUps[i]->addresses;
        const QByteArray entry = entryFor(m_names[i].place, found);
        m_resolved.reset(curl_slist_append(m_resolved.release(), entry.constData()));
        m_addresses.insert(m_addresses.end(), found.begin(), found.end());
    }
    curl_easy_setopt(m_handle.get(), CURLOPT_RESOLVE, m_resolved.get());
    if (m_resolved)
        keepAddressesApart();
}

/// The library keeps the addresses that it is given as long as their cache lives: this cache is
/// this transfer's alone.
void Transfer::keepAddressesApart()
{
    if (!m_addressCache) {
        m_addressCache.reset(curl_share_init());
        curl_share_setopt(m_addressCache.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_DNS);
    }
    curl_easy_setopt(m_handle.get(), CURLOPT_SHARE, m_addressCache.get());
}

milliseconds Transfer::timeLeft() const
{
    const auto spent = floor<milliseconds>(m_lastBeginning - m_clockStart);
    return std::max(m_timeout - spent, milliseconds(1));
}

microseconds Transfer::elapsed(CURLcode code, Clock::time_point now) const
{
    // The library's clock stops when a transfer succeeds; ours would include the other transfers
    // served in the same turn of the loop. But not every failure stops the library's clock: after a
    // failed look-up it shows the time at which the look-up began.
    if (code != CURLE_OK)
        return duration_cast<microseconds>(now - m_clockStart);
    curl_off_t sinceLastBeginning = 0;
    curl_easy_getinfo(m_handle.get(), CURLINFO_TOTAL_TIME_T, &sinceLastBeginning);
    return duration_cast<microseconds>(m_lastBeginning - m_clockStart) +
           microseconds(sinceLastBeginning);
}

} // namespace ostrel
