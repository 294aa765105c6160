#include "PageIcon.h"

#include "MarkedAttribute.h"

namespace ostrel {

namespace {

const MarkedAttribute &iconLink()
{
    constexpr auto caseInsensitive = QRegularExpression::CaseInsensitiveOption;
    static const MarkedAttribute link = {
        QRegularExpression(QStringLiteral("<link"), caseInsensitive),
        QRegularExpression(QStringLiteral(R"(rel\s*=\s*["'](?:shortcut )?icon["'])"),
                           caseInsensitive),
        QRegularExpression(QStringLiteral(R"(href\s*=\s*["'])"), caseInsensitive),
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
    if (href.startsWith(QStringLiteral("//")))
        return QStringLiteral("https:") + href;
    if (href.startsWith(QLatin1Char('/')))
        return QStringLiteral("https://") + domain + href;
    if (href.startsWith(QStringLiteral("http")))
        return href;
    return QStringLiteral("https://") + domain + QLatin1Char('/') + href;
}

} // namespace ostrel
