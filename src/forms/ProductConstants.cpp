#include "ProductConstants.h"

using namespace Qt::StringLiterals;

namespace ostrel {

QUrl supportAddress()
{
    return QUrl(u"mailto:" OSTREL_SUPPORT_MAILBOX ""_s);
}

QString exampleWebsite()
{
    return u"https://example.com"_s;
}

QString exampleDatabaseHost()
{
    return u"db.example.com"_s;
}

} // namespace ostrel
