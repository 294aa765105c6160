#include "PageTitle.h"

#include "MarkedAttribute.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

constexpr auto caseInsensitive = QRegularExpression::CaseInsensitiveOption;

const MarkedAttribute &openGraphTitle()
{
    static const MarkedAttribute meta = {
        QRegularExpression(u"<meta"_s, caseInsensitive),
        QRegularExpression(uR"(property\s*=\s*["']og:title["'])"_s, caseInsensitive),
        QRegularExpression(uR"(content\s*=\s*["'])"_s, caseInsensitive),
    };
    return meta;
}

/// Returns what `<title[^>]*>([^<]+)</title>` captures first. A failed attempt is consumed up to
/// its ">" or the page's end, because no later beginning before that could succeed; so this takes
/// linear time on every page.
std::optional<QString> findTitleElement(const QString &html)
{
    static const QRegularExpression attempt(u"<title[^>]*+(?:>(?:([^<]+)</title>)?)?"_s,
                                            caseInsensitive);
    for (const auto &match : attempt.globalMatch(html)) {
        if (match.hasCaptured(1))
            return match.captured(1);
    }
    return std::nullopt;
}

std::optional<QString> trimmedUnlessBlank(const std::optional<QString> &text)
{
    if (!text || text->trimmed().isEmpty())
        return std::nullopt;
    return text->trimmed();
}

} // namespace

std::optional<QString> pageTitleIn(const QString &html)
{
    for (const auto order : {AttributeOrder::markerFirst, AttributeOrder::valueFirst}) {
        if (auto title = trimmedUnlessBlank(findMarkedAttribute(html, openGraphTitle(), order)))
            return title;
    }
    return trimmedUnlessBlank(findTitleElement(html));
}

} // namespace ostrel
