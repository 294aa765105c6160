#include "HttpTransfer.h"

#include "LeafCertificate.h"
#include "TrustStore.h"

#include <algorithm>
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

/// An empty path is no path at all.
const char *orNull(const QByteArray &path)
{
    return path.isEmpty() ? nullptr : path.constData();
}

} // namespace

HttpTransfer::HttpTransfer(HttpRequest request)
    : Transfer(request.timeout)
    , m_request(std::move(request))
{
    m_promise.start();
}

void HttpTransfer::setUp(CURL *handle, const TrustStore &trustStore)
{
    m_body.clear();
    m_isBodyTruncated = false;
    m_refusal = CURLE_OK;
    curl_easy_setopt(handle, CURLOPT_URL, m_request.url.constData());
    curl_easy_setopt(handle, CURLOPT_USERAGENT, m_request.userAgent.constData());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(handle, CURLOPT_MAXREDIRS, 20L);
    // A cookie jar in memory, for this handle alone: sites set cookies on one hop and want them on
    // the next.
    curl_easy_setopt(handle, CURLOPT_COOKIEFILE, "");
    curl_easy_setopt(handle, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(handle, CURLOPT_BUFFERSIZE, receiveBufferSize);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, didReceiveBody);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
    setMethod(handle);
    setTls(handle, trustStore);
}

void HttpTransfer::report(CURLcode code, std::chrono::microseconds elapsed)
{
    HttpResult result;
    result.elapsed = elapsed;
    if (code == CURLE_OK) {
        long statusCode = 0;
        curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &statusCode);
        result.hasResponse = true;
        result.statusCode = static_cast<int>(statusCode);
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
    if (m_request.method == "HEAD")
        curl_easy_setopt(handle, CURLOPT_NOBODY, 1L);
    if (m_request.method != "POST")
        return;
    // Not as a custom request, which would stay POST on every redirect.
    curl_easy_setopt(handle, CURLOPT_POST, 1L);
    curl_easy_setopt(handle, CURLOPT_POSTFIELDS, "");
    curl_easy_setopt(handle, CURLOPT_POSTFIELDSIZE, 0L);
    m_headers.reset(curl_slist_append(nullptr, "Content-Type:"));
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
