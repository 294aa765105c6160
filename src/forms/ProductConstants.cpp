#include "ProductConstants.h"

namespace ostrel {

QUrl supportAddress()
{
    return QUrl(QStringLiteral("mailto:support@ostrel.example"));
}

QString exampleWebsite()
{
    return QStringLiteral("https://example.com");
}

QString exampleDatabaseHost()
{
    return QStringLiteral("db.example.com");
}

} // namespace ostrel
