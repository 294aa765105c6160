#include "HttpTransfer.h"

#include "LeafCertificate.h"

#include <algorithm>
#include <arpa/inet.h>
#include <exception>
#include <netinet/in.h>
#include <utility>

namespace ostrel {

namespace {

/// The library reads up to a hundred buffers of a body in one go, with no look at the time-out,
/// while every other transfer waits. Of the smallest size, so that even with gzip, which makes at
/// most a thousandfold of them, that is done in a fraction of a second.
constexpr long receiveBufferSize = 1024;

/// The most that a body may grow by in one turn of the loop: more than gzip can make of what is
/// read in one. Other encodings have no such bound and can make gigabytes of a kilobyte.
constexpr qsizetype maxBytesInTurn = qsizetype(128) * 1024 * 1024;

constexpr int maxRedirects = 20;

/// @p text is an address as inet_ntop() writes it.
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

/// The client has seen that it can be parsed.
HttpHop firstHopOf(const HttpRequest &request, const Proxies &proxies)
{
    return HttpHop(*WebAddress::parse(request.url), request.method, proxies);
}

} // namespace

HttpTransfer::HttpTransfer(HttpRequest request)
    : Transfer(request.timeout)
    , m_request(std::move(request))
    , m_hop(firstHopOf(m_request, m_proxies))
{
    setNames(m_hop.names());
    m_promise.start();
}

void HttpTransfer::setUp(CURL *handle)
{
    m_body.clear();
    m_isBodyTruncated = false;
    m_refusal = CURLE_OK;
    curl_easy_setopt(handle, CURLOPT_USERAGENT, m_request.userAgent.constData());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    // A cookie jar in memory, for this handle alone: sites set cookies on one hop and want them on
    // the next.
    curl_easy_setopt(handle, CURLOPT_COOKIEFILE, "");
    curl_easy_setopt(handle, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(handle, CURLOPT_BUFFERSIZE, receiveBufferSize);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, didReceiveBody);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, didReceiveHeader);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, this);
    // A proxy's answer to CONNECT isn't the site's.
    curl_easy_setopt(handle, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    setTls(handle);
}

void HttpTransfer::setUpHop(CURL *handle, const Surroundings &surroundings)
{
    m_surroundings = surroundings;
    m_hasHead = false;
    m_location.clear();
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

void HttpTransfer::startOver()
{
    m_redirects = 0;
    m_hasBeenPublic = false;
    setHop(firstHopOf(m_request, m_proxies));
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
    HttpResult result;
    result.elapsed = elapsed;
    if (isHeadTooLong(code))
        setErrorText("A header of the response is too long");
    if (code == CURLE_OK) {
        long statusCode = 0;
        curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &statusCode);
        result.hasResponse = true;
        result.statusCode = static_cast<int>(statusCode);
        result.isFromPublicAddress = isServerPublic();
        result.body = std::move(m_body);
        result.isBodyTruncated = m_isBodyTruncated;
    } else {
        result.error = m_refusal == CURLE_OK ? errorText(code) : refusalText(elapsed);
    }
    // Whoever waits for the result may count on being the last to hold the delegate.
    m_request.tlsDelegate.reset();
    m_promise.addResult(std::move(result));
    m_promise.finish();
}

std::size_t HttpTransfer::didReceiveBody(char *bytes, std::size_t size, std::size_t count,
                                         void *self)
{
    auto *transfer = static_cast<HttpTransfer *>(self);
    const std::size_t byteCount = size * count;
    transfer->keep(bytes, static_cast<qsizetype>(byteCount));
    transfer->m_refusal = transfer->refusal();
    return transfer->m_refusal == CURLE_OK ? byteCount : 0;
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
    // Nobody reads the body of a redirect.
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
    // The library has defaults, which it would read for each connection, and add to what it is
    // given: the certificates are ours.
    for (const CURLoption option :
         {CURLOPT_CAPATH, CURLOPT_CAINFO, CURLOPT_PROXY_CAPATH, CURLOPT_PROXY_CAINFO})
        curl_easy_setopt(handle, option, nullptr);
    // Nor may it keep one connection's certificates for the next, since they may have changed.
    curl_easy_setopt(handle, CURLOPT_CA_CACHE_TIMEOUT, 0L);
    // A resumed session shows no certificate.
    curl_easy_setopt(handle, CURLOPT_SSL_SESSIONID_CACHE, 0L);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_FUNCTION, didCreateTlsContext);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_DATA, this);
}

void HttpTransfer::setHop(HttpHop hop)
{
    m_hop = std::move(hop);
    setNames(m_hop.names());
}

/// Of one behind a proxy, only its host can tell.
bool HttpTransfer::isServerPublic() const
{
    if (m_hop.isProxied())
        return !isPrivateHost(QString::fromUtf8(m_hop.address().place().host));
    const char *text = nullptr;
    curl_easy_getinfo(handle(), CURLINFO_PRIMARY_IP, &text);
    const sockaddr_storage address = addressFrom(text == nullptr ? "" : text);
    return m_surroundings.isPublicAddress(reinterpret_cast<const sockaddr &>(address));
}

/// The library has no other word for it than that there is no memory.
bool HttpTransfer::isHeadTooLong(CURLcode code) const
{
    curl_off_t untilRequest = 0;
    if (code == CURLE_OUT_OF_MEMORY && handle() != nullptr)
        curl_easy_getinfo(handle(), CURLINFO_PRETRANSFER_TIME_T, &untilRequest);
    return untilRequest > 0 && !m_hasHead;
}

void HttpTransfer::keep(const char *bytes, qsizetype count)
{
    const qsizetype kept = std::clamp<qsizetype>(m_request.bodyLimit - m_body.size(), 0, count);
    m_body.append(bytes, kept);
    m_isBodyTruncated = m_isBodyTruncated || kept < count;
    m_bytesInTurn += count;
}

QString HttpTransfer::refusalText(std::chrono::microseconds elapsed) const
{
    // As the library says it where it is the one to break off.
    if (m_refusal == CURLE_OPERATION_TIMEDOUT)
        return QStringLiteral("Operation timed out after %1 milliseconds")
            .arg(std::chrono::floor<std::chrono::milliseconds>(elapsed).count());
    return QString::fromUtf8(curl_easy_strerror(m_refusal));
}

CURLcode HttpTransfer::refusal() const
{
    if (m_bytesInTurn > maxBytesInTurn)
        return CURLE_BAD_CONTENT_ENCODING;
    return isOverdue() ? CURLE_OPERATION_TIMEDOUT : CURLE_OK;
}

} // namespace ostrel
