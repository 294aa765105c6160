#include "LoopbackHost.h"

#include <QRegularExpression>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// Lower case, and with addresses in their shortest spelling.
QString canonical(const QString &host)
{
    QUrl url;
    url.setHost(host);
    return url.host();
}

} // namespace

bool isLoopbackHost(const QString &host)
{
    static const QRegularExpression loopback(
        uR"(^(127(\.\d+){3}|::1|::ffff:127(\.\d+){3}|(.*\.)?localhost\.?)$)"_s);
    return loopback.match(canonical(host)).hasMatch();
}

} // namespace ostrel
