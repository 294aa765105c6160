#include "IconFakes.h"

#include <QBuffer>

namespace ostrel::test {

QFuture<HttpResult> FakeWeb::fetch(const HttpRequest &request)
{
    requests.push_back(request);
    if (!m_isHolding)
        return QtFuture::makeReadyFuture(answer(request));
    QPromise<HttpResult> promise;
    promise.start();
    auto future = promise.future();
    m_held.emplace_back(request, std::move(promise));
    return future;
}

void FakeWeb::put(const QString &address, const QByteArray &body, int statusCode)
{
    HttpResult result;
    result.hasResponse = true;
    result.statusCode = statusCode;
    result.body = body;
    result.isFromPublicAddress = true;
    m_answers.insert(address, result);
}

void FakeWeb::setPrivate(const QString &address)
{
    m_answers[address].isFromPublicAddress = false;
}

void FakeWeb::redirect(const QString &from, const QString &to)
{
    m_redirects.insert(from, to);
}

void FakeWeb::breakAt(const QString &address)
{
    m_answers.insert(address, {});
}

void FakeWeb::releaseNext()
{
    auto [request, promise] = std::move(m_held.front());
    m_held.pop_front();
    promise.addResult(answer(request));
    promise.finish();
}

QStringList FakeWeb::addresses() const
{
    QStringList addresses;
    for (const HttpRequest &request : requests)
        addresses += QString::fromLatin1(request.url);
    return addresses;
}

std::optional<Reach> FakeWeb::reachOf(const QString &address) const
{
    for (const HttpRequest &request : requests) {
        if (QString::fromLatin1(request.url) == address)
            return request.reach;
    }
    return std::nullopt;
}

HttpResult FakeWeb::answer(const HttpRequest &request) const
{
    const QString address = QString::fromLatin1(request.url);
    HttpResult notFound;
    notFound.hasResponse = true;
    notFound.statusCode = 404;
    HttpResult result = m_answers.value(m_redirects.value(address, address), notFound);
    result.isBodyTruncated = result.body.size() > request.bodyLimit;
    result.body.truncate(request.bodyLimit);
    return result;
}

QByteArray picture(const QSize &size, const char *format, Qt::GlobalColor color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QColor centerOf(const QImage &image)
{
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

bool isReddish(const QColor &color)
{
    return color.alpha() == 255 && color.red() > 240 && color.green() < 16 && color.blue() < 16;
}

QByteArray smallGif(qsizetype fileSize)
{
    const QByteArray gif = QByteArray::fromHex(
        "47494638396110001000800000293385ffffff2c000000001000100000020e848fa9cbed0fa39cb4da8bb33e05"
        "003b");
    // Decoders ignore what follows a GIF's end.
    return gif.leftJustified(fileSize, '\0');
}

} // namespace ostrel::test
