#include "SvgStyle.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

const QLatin1String dashList("stroke-dasharray");

/// Whether @p list, of numbers, may have one that isn't zero.
bool holdsLength(QStringView list)
{
    return std::ranges::any_of(
        list, [](QChar character) { return character >= u'1' && character <= u'9'; });
}

/// A blank stands for each, so that what it parts stays parted.
QString withoutComments(const QString &style)
{
    QString rest;
    qsizetype end = 0;
    for (qsizetype begin = style.indexOf(u"/*"); begin >= 0; begin = style.indexOf(u"/*", end)) {
        rest += QStringView(style).sliced(end, begin - end);
        rest += u' ';
        const qsizetype closer = style.indexOf(u"*/", begin + 2);
        if (closer < 0)
            return rest;
        end = closer + 2;
    }
    rest += QStringView(style).sliced(end);
    return rest;
}

/// @p style, which has no comments, with "none" for each dash list; nothing if one holds a length.
std::optional<QString> withoutDashes(QString style)
{
    static const QRegularExpression declaration(dashList + u"\\s*+:([^;}]*+)"_s,
                                                QRegularExpression::CaseInsensitiveOption);
    for (const auto &match : declaration.globalMatch(style)) {
        if (holdsLength(match.capturedView(1)))
            return std::nullopt;
    }
    return style.replace(declaration, dashList + u":none"_s);
}

bool importsOrEscapes(QStringView text)
{
    return text.contains(u'\\') || text.contains(u"@import", Qt::CaseInsensitive);
}

} // namespace

std::optional<QString> harmlessAttribute(const QString &name, const QString &value)
{
    if (name.compare(u"style", Qt::CaseInsensitive) == 0)
        return harmlessStyle(value);
    const bool isDashList = name.compare(dashList, Qt::CaseInsensitive) == 0;
    if (importsOrEscapes(value) || (isDashList && holdsLength(value)))
        return std::nullopt;
    return isDashList ? u"none"_s : value;
}

std::optional<QString> harmlessStyle(const QString &style)
{
    const QString rest = withoutComments(style);
    return importsOrEscapes(rest) ? std::nullopt : withoutDashes(rest);
}

} // namespace ostrel
