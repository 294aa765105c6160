#include "PageIcon.h"

#include "MarkedAttribute.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

const MarkedAttribute &iconLink()
{
    constexpr auto caseInsensitive = QRegularExpression::CaseInsensitiveOption;
    static const MarkedAttribute link = {
        QRegularExpression(u"<link"_s, caseInsensitive),
        QRegularExpression(uR"(rel\s*=\s*["'](?:shortcut )?icon["'])"_s, caseInsensitive),
        QRegularExpression(uR"(href\s*=\s*["'])"_s, caseInsensitive),
    };
    return link;
}

} // namespace

QStringList iconAddresses(const QString &html, const QString &domain)
{
    QStringList addresses;
    for (const auto order : {AttributeOrder::markerFirst, AttributeOrder::valueFirst}) {
        if (const auto href = findMarkedAttribute(html, iconLink(), order))
            addresses += resolveIconAddress(*href, domain);
    }
    return addresses;
}

QString resolveIconAddress(const QString &href, const QString &domain)
{
    if (href.startsWith(u"//"_s))
        return u"https:"_s + href;
    if (href.startsWith(QLatin1Char('/')))
        return u"https://"_s + domain + href;
    if (href.startsWith(u"http"_s))
        return href;
    return u"https://"_s + domain + QLatin1Char('/') + href;
}

} // namespace ostrel
