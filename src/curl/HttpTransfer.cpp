#include "HttpTransfer.h"

#include "LeafCertificate.h"
#include "TrustStore.h"

#include <algorithm>
#include <new>
#include <utility>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// The library reads up to a hundred buffers of a body in one go, with no look at the time-out,
/// while every other transfer waits.
constexpr long receiveBufferSize = 4096;

/// How long after the time-out a body may still be read that came in time.
constexpr auto readingGrace = 250ms;

constexpr auto acceptedEncodings = "Accept-Encoding: gzip, deflate, br, zstd";

/// An empty path is no path at all.
const char *orNull(const QByteArray &path)
{
    return path.isEmpty() ? nullptr : path.constData();
}

} // namespace

HttpTransfer::HttpTransfer(HttpRequest request, std::shared_ptr<WorkQueue> reading,
                           std::shared_ptr<IoWaker> waker)
    : Transfer(request.timeout)
    , m_request(std::move(request))
    , m_reading(std::move(reading))
    , m_waker(std::move(waker))
{
    m_promise.start();
}

void HttpTransfer::didBeginTurn()
{
    if (!m_pausedSince)
        return;
    if (pausedTime(Clock::now()) > longestPause())
        m_body->giveUp();
    if (m_body->hasRoom())
        resume();
}

Transfer::Clock::time_point HttpTransfer::nextTurn() const
{
    if (m_result.hasResponse)
        return deadline() + readingGrace;
    if (m_pausedSince)
        return *m_pausedSince + longestPause() - m_pausedBefore;
    return m_pausedBefore == 0ms ? Clock::time_point::max() : deadline() + extraTime();
}

bool HttpTransfer::conclude(Clock::time_point now)
{
    if (m_isFinished)
        return true;
    if (!m_body->isOver() && now < deadline() + readingGrace)
        return false;
    m_body->giveUp();
    IncomingBody::Outcome outcome = m_body->takeOutcome();
    m_result.body = std::move(outcome.kept);
    m_result.isBodyTruncated = outcome.isTruncated;
    m_result.isBodyRead = outcome.isWhole && m_request.bodyReader != nullptr;
    finish();
    return true;
}

void HttpTransfer::setUp(CURL *handle, const TrustStore &trustStore)
{
    // What came before is void.
    if (m_body)
        m_body->giveUp();
    m_body = makeIncomingBody();
    m_hasBody = false;
    m_hasBrokenOff = false;
    m_pausedSince.reset();
    m_pausedBefore = {};
    curl_easy_setopt(handle, CURLOPT_URL, m_request.url.constData());
    curl_easy_setopt(handle, CURLOPT_USERAGENT, m_request.userAgent.constData());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(handle, CURLOPT_MAXREDIRS, 20L);
    // A cookie jar in memory, for this handle alone: sites set cookies on one hop and want them on
    // the next.
    curl_easy_setopt(handle, CURLOPT_COOKIEFILE, "");
    // The library would make an error of an encoding that it doesn't know.
    curl_easy_setopt(handle, CURLOPT_HTTP_CONTENT_DECODING, 0L);
    curl_easy_setopt(handle, CURLOPT_BUFFERSIZE, receiveBufferSize);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, didReceiveBody);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
    setMethod(handle);
    setTls(handle, trustStore);
}

void HttpTransfer::report(CURLcode code, std::chrono::microseconds elapsed)
{
    // The time in which we had paused the transfer isn't the site's.
    const auto paused = pausedTime(Clock::now());
    m_result.elapsed = elapsed - std::chrono::floor<std::chrono::microseconds>(paused);
    if (code == CURLE_OK || isTimeoutOurs(code)) {
        reportResponse();
        return;
    }
    m_result.error = m_hasBrokenOff ? timeoutText() : errorText(code);
    finish();
}

void HttpTransfer::reportResponse()
{
    long statusCode = 0;
    curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &statusCode);
    m_result.hasResponse = true;
    m_result.statusCode = static_cast<int>(statusCode);
    m_result.isBodyTruncated = m_hasBody;
    if (m_body)
        m_body->complete();
    else
        finish();
}

void HttpTransfer::finish()
{
    m_isFinished = true;
    if (m_body)
        m_body->giveUp();
    // Whoever waits for the result may count on being the last to hold the delegate.
    m_request.tlsDelegate.reset();
    m_promise.addResult(std::move(m_result));
    m_promise.finish();
}

std::size_t HttpTransfer::didReceiveBody(char *bytes, std::size_t size, std::size_t count,
                                         void *self)
{
    auto *transfer = static_cast<HttpTransfer *>(self);
    const std::size_t byteCount = size * count;
    transfer->m_hasBrokenOff = transfer->isOverTime();
    if (transfer->m_hasBrokenOff)
        return 0;
    const bool isTaken = transfer->handOver({bytes, static_cast<qsizetype>(byteCount)});
    return isTaken ? byteCount : CURL_WRITEFUNC_PAUSE;
}

CURLcode HttpTransfer::didCreateTlsContext(CURL *handle, void *context, void *self)
{
    Q_UNUSED(handle)
    auto *tlsContext = static_cast<SSL_CTX *>(context);
    // Many servers end a body by closing the connection without a close_notify.
    SSL_CTX_set_options(tlsContext, SSL_OP_IGNORE_UNEXPECTED_EOF);
    if (const auto &delegate = static_cast<HttpTransfer *>(self)->m_request.tlsDelegate)
        reportLeafCertificate(tlsContext, *delegate);
    return CURLE_OK;
}

void HttpTransfer::setMethod(CURL *handle)
{
    m_headers.reset(curl_slist_append(nullptr, acceptedEncodings));
    if (m_request.method == "HEAD")
        curl_easy_setopt(handle, CURLOPT_NOBODY, 1L);
    if (m_request.method == "POST") {
        // Not as a custom request, which would stay POST on every redirect.
        curl_easy_setopt(handle, CURLOPT_POST, 1L);
        curl_easy_setopt(handle, CURLOPT_POSTFIELDS, "");
        curl_easy_setopt(handle, CURLOPT_POSTFIELDSIZE, 0L);
        curl_slist_append(m_headers.get(), "Content-Type:");
    }
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, m_headers.get());
}

void HttpTransfer::setTls(CURL *handle, const TrustStore &trustStore)
{
    // The library has defaults for both, so that an unused one has to be taken away.
    curl_easy_setopt(handle, CURLOPT_CAPATH, orNull(trustStore.directory));
    curl_easy_setopt(handle, CURLOPT_CAINFO, orNull(trustStore.file));
    curl_easy_setopt(handle, CURLOPT_PROXY_CAPATH, orNull(trustStore.directory));
    curl_easy_setopt(handle, CURLOPT_PROXY_CAINFO, orNull(trustStore.file));
    // A resumed session shows no certificate.
    curl_easy_setopt(handle, CURLOPT_SSL_SESSIONID_CACHE, 0L);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_FUNCTION, didCreateTlsContext);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_DATA, this);
}

/// Null also where there is no memory for it: then it isn't read.
std::shared_ptr<IncomingBody> HttpTransfer::makeIncomingBody() const
{
    if (!m_request.bodyReader && m_request.bodyLimit == 0)
        return nullptr;
    try {
        return std::make_shared<IncomingBody>(BodyWish{m_request.bodyReader, m_request.bodyLimit},
                                              m_reading, m_waker);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

bool HttpTransfer::handOver(QByteArrayView bytes)
{
    const bool isFirst = !std::exchange(m_hasBody, true);
    if (!m_body)
        return true;
    try {
        if (isFirst)
            m_body->setEncoding(contentEncoding());
    } catch (const std::bad_alloc &) {
        m_body->giveUp();
    }
    const bool isTaken = m_body->offer(bytes);
    if (!isTaken)
        pause();
    return isTaken;
}

/// The values of that header, however many lines it has.
QByteArray HttpTransfer::contentEncoding() const
{
    QByteArray values;
    curl_header *header = nullptr;
    for (std::size_t i = 0;
         curl_easy_header(handle(), "Content-Encoding", i, CURLH_HEADER, -1, &header) == CURLHE_OK;
         ++i)
        values.append(header->value).append(',');
    return values;
}

void HttpTransfer::pause()
{
    m_pausedSince = Clock::now();
    setExtraTime(readingGrace);
}

void HttpTransfer::resume()
{
    m_pausedBefore = pausedTime(Clock::now());
    m_pausedSince.reset();
    setExtraTime(extraTime());
    // What the library has received meanwhile comes at once, and may pause it again.
    curl_easy_pause(handle(), CURLPAUSE_CONT);
}

Transfer::Clock::duration HttpTransfer::pausedTime(Clock::time_point now) const
{
    return m_pausedBefore + (m_pausedSince ? now - *m_pausedSince : Clock::duration(0));
}

/// How much longer than its time-out the transfer may take, since we have held it up.
std::chrono::milliseconds HttpTransfer::extraTime() const
{
    return std::min(std::chrono::ceil<std::chrono::milliseconds>(m_pausedBefore),
                    std::chrono::milliseconds(readingGrace));
}

bool HttpTransfer::isOverTime() const
{
    return Clock::now() > deadline() + extraTime();
}

/// Whether the site would have been in time if we hadn't held it up. A body whose length isn't
/// announced may have no end.
bool HttpTransfer::isTimeoutOurs(CURLcode code) const
{
    curl_off_t length = -1;
    curl_easy_getinfo(handle(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    const bool isTimeout = m_hasBrokenOff || code == CURLE_OPERATION_TIMEDOUT;
    return isTimeout && m_hasBody && length >= 0 && m_result.elapsed < timeout();
}

/// As the library says it where it is the one to break off.
QString HttpTransfer::timeoutText() const
{
    return QStringLiteral("Operation timed out after %1 milliseconds")
        .arg(std::chrono::floor<std::chrono::milliseconds>(m_result.elapsed).count());
}

} // namespace ostrel
