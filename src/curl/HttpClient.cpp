#include "HttpClient.h"

#include "HttpTransfer.h"
#include "IoThreadWorker.h"

#include <memory>
#include <utility>

namespace ostrel {

namespace {

QString unsupportedScheme()
{
    return QString::fromUtf8(curl_url_strerror(CURLUE_UNSUPPORTED_SCHEME));
}

QString malformedAddress()
{
    return QString::fromUtf8(curl_easy_strerror(CURLE_URL_MALFORMAT));
}

bool isFetched(CURLU *url)
{
    char *scheme = nullptr;
    if (curl_url_get(url, CURLUPART_SCHEME, &scheme, 0) != CURLUE_OK)
        return false;
    const QByteArray name(scheme);
    curl_free(scheme);
    return name == "http" || name == "https";
}

/// Why @p address can't be fetched; empty where it can. Left to itself the library takes an
/// address without a scheme for one of http.
QString refusalOf(const QByteArray &address)
{
    const CurlUrl url(curl_url());
    if (address.isEmpty() || address.contains('\0'))
        return malformedAddress();
    switch (curl_url_set(url.get(), CURLUPART_URL, address.constData(), 0)) {
    case CURLUE_OK:
        return isFetched(url.get()) ? QString() : unsupportedScheme();
    case CURLUE_BAD_SCHEME:
    case CURLUE_UNSUPPORTED_SCHEME:
        return unsupportedScheme();
    default:
        return malformedAddress();
    }
}

} // namespace

HttpClient::HttpClient(IoThread &ioThread)
    : m_ioThread(ioThread)
{
}

QFuture<HttpResult> HttpClient::fetch(const HttpRequest &request)
{
    if (const QString refusal = refusalOf(request.url); !refusal.isEmpty()) {
        HttpResult result;
        result.error = refusal;
        return QtFuture::makeReadyFuture(result);
    }
    const WorkThread &thread = request.bodyReader ? m_reading : m_keeping;
    auto transfer =
        std::make_unique<HttpTransfer>(request, thread.queue(), m_ioThread.worker().inbox());
    QFuture<HttpResult> future = transfer->future();
    m_ioThread.worker().submit(std::move(transfer));
    return future;
}

} // namespace ostrel
