#include "TcpConnector.h"

#include "IoThreadWorker.h"
#include "TcpTransfer.h"

#include <QUrl>

#include <memory>
#include <optional>
#include <utility>

namespace ostrel {

namespace {

/// @p host as a URL holds it; empty for what can't be one.
QByteArray encodedHost(const QString &host)
{
    if (host.contains(QChar::Null))
        return {};
    if (host.contains(u':'))
        return '[' + host.toUtf8() + ']';
    return host.contains(u'%') ? QByteArray() : QUrl::toAce(host);
}

/// Nothing where @p host or @p port can't be a target.
std::optional<WebAddress> targetOf(const QString &host, quint16 port)
{
    const QByteArray name = encodedHost(host);
    const CurlUrl url(curl_url());
    const auto set = [&url](CURLUPart part, const QByteArray &text) {
        return curl_url_set(url.get(), part, text.constData(), 0) == CURLUE_OK;
    };
    // The scheme is there because a URL needs one: nothing is sent.
    const bool isTarget = !name.isEmpty() && set(CURLUPART_SCHEME, "http") &&
                          set(CURLUPART_HOST, name) &&
                          set(CURLUPART_PORT, QByteArray::number(port));
    return isTarget ? WebAddress::of(url.get()) : std::nullopt;
}

} // namespace

TcpConnector::TcpConnector(IoThread &ioThread)
    : m_ioThread(ioThread)
{
}

QFuture<TcpResult> TcpConnector::connect(const QString &host, quint16 port,
                                         std::chrono::milliseconds timeout)
{
    const std::optional<WebAddress> target = targetOf(host, port);
    if (!target)
        return QtFuture::makeReadyFuture(TcpResult{});
    auto transfer = std::make_unique<TcpTransfer>(*target, timeout);
    QFuture<TcpResult> future = transfer->future();
    m_ioThread.worker().submit(std::move(transfer));
    return future;
}

} // namespace ostrel
