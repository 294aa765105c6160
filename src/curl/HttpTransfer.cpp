#include "HttpTransfer.h"

#include "AddressScope.h"
#include "LeafCertificate.h"

#include <openssl/ssl.h>

#include <algorithm>
#include <arpa/inet.h>
#include <exception>
#include <netinet/in.h>
#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// The library reads up to a hundred buffers of a body at once, without checking the time-out,
/// while every other transfer waits.
constexpr long receiveBufferSize = 4096;

/// How long after the time-out a body that arrived in time may still be read.
constexpr auto readingGrace = TransferPauses::grace;

constexpr int maxRedirects = 20;

/// Parses @p text, an address as written by inet_ntop().
sockaddr_storage addressFrom(const char *text)
{
    sockaddr_storage address{};
    auto &address4 = reinterpret_cast<sockaddr_in &>(address);
    auto &address6 = reinterpret_cast<sockaddr_in6 &>(address);
    if (inet_pton(AF_INET, text, &address4.sin_addr) == 1)
        address.ss_family = AF_INET;
    else if (inet_pton(AF_INET6, text, &address6.sin6_addr) == 1)
        address.ss_family = AF_INET6;
    return address;
}

} // namespace

HttpTransfer::HttpTransfer(HttpRequest request, WebAddress address,
                           std::shared_ptr<WorkQueue> reading, std::shared_ptr<Inbox> inbox)
    : Transfer(request.timeout)
    , m_request(std::move(request))
    , m_hop(std::move(address), m_request.method, m_proxies)
    , m_reading(std::move(reading))
    , m_inbox(std::move(inbox))
    , m_pauses(timeout())
{
    setNames(m_hop.names());
    m_promise.start();
}

HttpTransfer::~HttpTransfer()
{
    if (m_body)
        m_body->giveUp();
}

void HttpTransfer::didBeginTurn()
{
    if (!m_pauses.isOn())
        return;
    if (Clock::now() > endOfPause())
        m_body->giveUp();
    if (m_body->hasRoom())
        resume();
}

Transfer::Clock::time_point HttpTransfer::nextTurn() const
{
    if (m_result.hasResponse)
        return deadline() + readingGrace;
    if (m_pauses.isOn())
        return endOfPause();
    return m_pauses.hadAny() ? deadline() + m_pauses.extraTime() : Clock::time_point::max();
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

void HttpTransfer::setUp(CURL *handle)
{
    curl_easy_setopt(handle, CURLOPT_USERAGENT, m_request.userAgent.constData());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    // A cookie jar in memory, for this handle only: sites set cookies on one hop and expect them on
    // the next.
    curl_easy_setopt(handle, CURLOPT_COOKIEFILE, "");
    // The library would report an error for an encoding that it doesn't know.
    curl_easy_setopt(handle, CURLOPT_HTTP_CONTENT_DECODING, 0L);
    curl_easy_setopt(handle, CURLOPT_BUFFERSIZE, receiveBufferSize);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, didReceiveBody);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, didReceiveHeader);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, this);
    // A proxy's response to CONNECT isn't the site's.
    curl_easy_setopt(handle, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    setTls(handle);
}

void HttpTransfer::setUpHop(CURL *handle, const Surroundings &surroundings)
{
    m_surroundings = surroundings;
    m_hasHead = false;
    m_location.clear();
    renewBody();
    m_hop.setUp(handle);
}

bool HttpTransfer::needsCertificates() const
{
    return m_hop.needsCertificates();
}

bool HttpTransfer::takeNextHop(CURLcode code)
{
    if (code != CURLE_WRITE_ERROR || m_location.isEmpty())
        return false;
    if (m_redirects == maxRedirects) {
        setErrorText("Maximum (" + QByteArray::number(maxRedirects) + ") redirects followed");
        return false;
    }
    long status = 0;
    curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &status);
    std::optional<HttpHop> next = m_hop.redirectedTo(m_location, status, m_proxies);
    if (!next) {
        setErrorText(m_hop.address().redirectProblem(m_location));
        return false;
    }
    ++m_redirects;
    m_hasBeenPublic = m_hasBeenPublic || isServerPublic();
    setHop(std::move(*next));
    return true;
}

bool HttpTransfer::mayConnectTo(const sockaddr &address)
{
    const bool mayAnywhere = m_request.reach == Reach::everywhere ||
                             (m_request.reach == Reach::outwards && !m_hasBeenPublic);
    if (mayAnywhere)
        return true;
    return m_hop.isProxied() ? isServerPublic() : m_surroundings.isPublicAddress(address);
}

void HttpTransfer::report(CURLcode code, std::chrono::microseconds elapsed)
{
    if (isHeadTooLong(code))
        setErrorText("A header of the response is too long");
    // The time during which we had paused the transfer isn't the site's.
    const auto paused = m_pauses.total(Clock::now());
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
    m_result.isFromPublicAddress = isServerPublic();
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
    // When the result arrives, its recipient may hold the last reference to the delegate.
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

std::size_t HttpTransfer::didReceiveHeader(char *bytes, std::size_t size, std::size_t count,
                                           void *self)
{
    auto *transfer = static_cast<HttpTransfer *>(self);
    const std::size_t byteCount = size * count;
    const bool isLast = QByteArrayView(bytes, qsizetype(byteCount)).trimmed().isEmpty();
    if (!isLast)
        return byteCount;
    try {
        transfer->m_location = transfer->locationInHead();
    } catch (const std::exception &) {
        return 0;
    }
    transfer->m_hasHead = true;
    // The body of a redirect isn't needed.
    return transfer->m_location.isEmpty() ? byteCount : 0;
}

QByteArray HttpTransfer::locationInHead() const
{
    long status = 0;
    curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &status);
    curl_header *header = nullptr;
    const bool isRedirect =
        status >= 300 && status < 400 &&
        curl_easy_header(handle(), "Location", 0, CURLH_HEADER, -1, &header) == CURLHE_OK;
    return isRedirect ? QByteArray(header->value) : QByteArray();
}

CURLcode HttpTransfer::didCreateTlsContext(CURL *handle, void *context, void *self)
{
    Q_UNUSED(handle)
    auto *transfer = static_cast<HttpTransfer *>(self);
    auto *tlsContext = static_cast<SSL_CTX *>(context);
    // Many servers end a body by closing the connection without a close_notify.
    SSL_CTX_set_options(tlsContext, SSL_OP_IGNORE_UNEXPECTED_EOF);
    if (X509_STORE *trusted = transfer->m_surroundings.certificates.get())
        SSL_CTX_set1_cert_store(tlsContext, trusted);
    const auto &delegate = transfer->m_request.tlsDelegate;
    if (transfer->m_hop.isHandshakeWithSite() && delegate)
        reportLeafCertificate(tlsContext, *delegate);
    return CURLE_OK;
}

void HttpTransfer::setTls(CURL *handle)
{
    // The library has default locations, which it would read for each connection, and add to what
    // it is given; only our certificates are used.
    for (const CURLoption option :
         {CURLOPT_CAPATH, CURLOPT_CAINFO, CURLOPT_PROXY_CAPATH, CURLOPT_PROXY_CAINFO})
        curl_easy_setopt(handle, option, nullptr);
    // It also may not reuse one connection's certificates for the next, since they may have
    // changed.
    curl_easy_setopt(handle, CURLOPT_CA_CACHE_TIMEOUT, 0L);
    // In a resumed session, the server presents no certificate.
    curl_easy_setopt(handle, CURLOPT_SSL_SESSIONID_CACHE, 0L);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_FUNCTION, didCreateTlsContext);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_DATA, this);
}

void HttpTransfer::setHop(HttpHop hop)
{
    m_hop = std::move(hop);
    setNames(m_hop.names());
}

/// For a server behind a proxy, only its host can be judged.
bool HttpTransfer::isServerPublic() const
{
    if (m_hop.isProxied())
        return !isPrivateHost(QString::fromUtf8(m_hop.address().place().host));
    const char *text = nullptr;
    curl_easy_getinfo(handle(), CURLINFO_PRIMARY_IP, &text);
    const sockaddr_storage address = addressFrom(text == nullptr ? "" : text);
    return m_surroundings.isPublicAddress(reinterpret_cast<const sockaddr &>(address));
}

/// The library reports this only as a lack of memory.
bool HttpTransfer::isHeadTooLong(CURLcode code) const
{
    curl_off_t untilRequest = 0;
    if (code == CURLE_OUT_OF_MEMORY && handle() != nullptr)
        curl_easy_getinfo(handle(), CURLINFO_PRETRANSFER_TIME_T, &untilRequest);
    return untilRequest > 0 && !m_hasHead;
}

/// Discards what was received of an earlier body.
void HttpTransfer::renewBody()
{
    if (m_body)
        m_body->giveUp();
    m_body = makeIncomingBody();
    m_hasBody = false;
    m_hasBrokenOff = false;
    m_pauses = TransferPauses(timeout());
}

/// Also null if there isn't enough memory: then the body isn't read.
std::shared_ptr<IncomingBody> HttpTransfer::makeIncomingBody() const
{
    if (!m_request.bodyReader && m_request.bodyLimit == 0)
        return nullptr;
    try {
        return std::make_shared<IncomingBody>(BodyWish{m_request.bodyReader, m_request.bodyLimit},
                                              m_reading, m_inbox);
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

/// The values of the Content-Encoding header, however many lines it has.
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
    m_pauses.begin(Clock::now());
    setExtraTime(readingGrace);
}

void HttpTransfer::resume()
{
    m_pauses.end(Clock::now());
    setExtraTime(m_pauses.extraTime());
    // The library delivers what it has received meanwhile at once, and may pause the transfer
    // again.
    curl_easy_pause(handle(), CURLPAUSE_CONT);
}

Transfer::Clock::time_point HttpTransfer::endOfPause() const
{
    return m_pauses.limit(deadline(), isLengthKnown());
}

/// Whether the response announces its body's length.
bool HttpTransfer::isLengthKnown() const
{
    curl_off_t length = -1;
    curl_easy_getinfo(handle(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    return length >= 0;
}

bool HttpTransfer::isOverTime() const
{
    return Clock::now() > deadline() + m_pauses.extraTime();
}

/// Whether the site would have been in time if we hadn't delayed it. A body without an announced
/// length may have no end.
bool HttpTransfer::isTimeoutOurs(CURLcode code) const
{
    const bool isTimeout = m_hasBrokenOff || code == CURLE_OPERATION_TIMEDOUT;
    return isTimeout && m_hasBody && isLengthKnown() && m_result.elapsed < timeout();
}

/// The library's wording if it aborts itself.
QString HttpTransfer::timeoutText() const
{
    return u"Operation timed out after %1 milliseconds"_s.arg(
        std::chrono::floor<std::chrono::milliseconds>(m_result.elapsed).count());
}

} // namespace ostrel
