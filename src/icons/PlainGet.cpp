#include "PlainGet.h"

#include "Address.h"
#include "PictureDecoder.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// Addresses come from pages, which may hold whole pictures where an address is expected.
constexpr qsizetype longestAddress = 8192;
constexpr qsizetype smallestPicture = 51;

bool isWebAddress(const QUrl &url)
{
    return (url.scheme() == u"https"_s || url.scheme() == u"http"_s) && !url.host().isEmpty();
}

bool isOk(const HttpResult &result)
{
    constexpr int ok = 200;
    return result.hasResponse && result.statusCode == ok;
}

} // namespace

std::optional<HttpRequest> plainGet(const QString &address, Reach reach)
{
    if (address.size() > longestAddress)
        return std::nullopt;
    const auto url = parseAddress(address);
    if (!url || !isWebAddress(*url))
        return std::nullopt;
    return HttpRequest{
        .url = url->toEncoded(),
        .method = QByteArrayLiteral("GET"),
        .userAgent = {},
        .timeout = 8s,
        .bodyLimit = answerLimit,
        .tlsDelegate = nullptr,
        .reach = reach,
    };
}

std::optional<QString> pageIn(const HttpResult &result)
{
    if (!isOk(result))
        return std::nullopt;
    // The body may have been cut within a character.
    QStringDecoder decoder(QStringDecoder::Utf8, result.isBodyTruncated
                                                     ? QStringDecoder::Flag::Default
                                                     : QStringDecoder::Flag::Stateless);
    QString page = decoder.decode(result.body);
    if (decoder.hasError())
        return std::nullopt;
    return page;
}

QImage pictureIn(const HttpResult &result)
{
    if (!isOk(result) || result.isBodyTruncated || result.body.size() < smallestPicture)
        return {};
    QImage picture = decodePicture(result.body);
    return picture.width() > 1 ? picture : QImage();
}

} // namespace ostrel
