#include "CurlNetwork.h"

#include "CurlHandles.h"
#include "HttpTransfer.h"
#include "IoThread.h"
#include "TcpTransfer.h"
#include "WebAddress.h"

#include <QUrl>

#include <optional>
#include <utility>
#include <variant>

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

/// The address that @p text is, or why it can't be fetched. The library by itself would take an
/// address without a scheme for an http one.
std::variant<WebAddress, QString> addressOf(const QByteArray &text)
{
    if (text.isEmpty() || text.contains('\0'))
        return malformedAddress();
    const CurlUrl url(curl_url());
    const CURLUcode code = curl_url_set(url.get(), CURLUPART_URL, text.constData(), 0);
    if (code == CURLUE_BAD_SCHEME || code == CURLUE_UNSUPPORTED_SCHEME)
        return unsupportedScheme();
    const auto address = code == CURLUE_OK ? WebAddress::of(url.get()) : std::nullopt;
    if (!address)
        return malformedAddress();
    return address->isHttp() ? std::variant<WebAddress, QString>(*address) : unsupportedScheme();
}

/// @p host in the form used in a URL; empty if it can't be a host.
QByteArray encodedHost(const QString &host)
{
    if (host.contains(QChar::Null))
        return {};
    if (host.contains(u':'))
        return '[' + host.toUtf8() + ']';
    return host.contains(u'%') ? QByteArray() : QUrl::toAce(host);
}

/// Nullopt if @p host or @p port can't be a target.
std::optional<WebAddress> targetOf(const QString &host, quint16 port)
{
    const QByteArray name = encodedHost(host);
    const CurlUrl url(curl_url());
    const auto set = [&url](CURLUPart part, const QByteArray &text) {
        return curl_url_set(url.get(), part, text.constData(), 0) == CURLUE_OK;
    };
    // The scheme is only there because a URL needs one: nothing is sent.
    const bool isTarget = !name.isEmpty() && set(CURLUPART_SCHEME, "http") &&
                          set(CURLUPART_HOST, name) &&
                          set(CURLUPART_PORT, QByteArray::number(port));
    return isTarget ? WebAddress::of(url.get()) : std::nullopt;
}

} // namespace

CurlNetwork::CurlNetwork(IoThreadConfiguration configuration)
    : m_ioThread(std::make_unique<IoThread>(std::move(configuration)))
{
}

CurlNetwork::~CurlNetwork() = default;

QFuture<HttpResult> CurlNetwork::fetch(const HttpRequest &request)
{
    const auto address = addressOf(request.url);
    if (const auto *refusal = std::get_if<QString>(&address)) {
        HttpResult result;
        result.error = *refusal;
        return QtFuture::makeReadyFuture(result);
    }
    const WorkThread &thread = request.bodyReader ? m_reading : m_keeping;
    auto transfer = std::make_unique<HttpTransfer>(request, std::get<WebAddress>(address),
                                                   thread.queue(), m_ioThread->inbox());
    QFuture<HttpResult> future = transfer->future();
    m_ioThread->submit(std::move(transfer));
    return future;
}

QFuture<TcpResult> CurlNetwork::connect(const QString &host, quint16 port,
                                        std::chrono::milliseconds timeout)
{
    const std::optional<WebAddress> target = targetOf(host, port);
    if (!target)
        return QtFuture::makeReadyFuture(TcpResult{});
    auto transfer = std::make_unique<TcpTransfer>(*target, timeout);
    QFuture<TcpResult> future = transfer->future();
    m_ioThread->submit(std::move(transfer));
    return future;
}

void CurlNetwork::dropConnections()
{
    m_ioThread->dropConnections();
}

} // namespace ostrel
