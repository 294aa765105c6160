#include "OneLine.h"

#include <QList>

#include <unicode/uchar.h>

#include <algorithm>

namespace ostrel {

namespace {

constexpr qsizetype mostCharacters = 200;
constexpr qsizetype mostJoined = 8;
/// In code units. No line can be longer, even with a surrogate pair for each code point.
constexpr qsizetype longestRead = 4096;
static_assert(longestRead > 2 * mostCharacters * (1 + mostJoined));

bool isBidiControl(char32_t c)
{
    return u_hasBinaryProperty(static_cast<UChar32>(c), UCHAR_BIDI_CONTROL);
}

/// A mark, or an invisible character: joiners, variation selectors, tags.
bool joinsWhatIsBefore(char32_t c)
{
    return QChar::isMark(c) ||
           u_hasBinaryProperty(static_cast<UChar32>(c), UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

bool isControlOrSeparator(char32_t c)
{
    const auto category = QChar::category(c);
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

/// The part of @p foreign that is read, without half of a pair at its end.
QString beginningOf(const QString &foreign)
{
    const qsizetype end = std::min(foreign.size(), longestRead);
    const bool cutsPair = end < foreign.size() && foreign[end].isLowSurrogate();
    return foreign.first(cutsPair ? end - 1 : end);
}

} // namespace

QString oneLine(const QString &foreign)
{
    const auto ellipsis = u'…';
    const QString beginning = beginningOf(foreign);
    QString line;
    qsizetype characters = 0;
    qsizetype joined = 0;
    for (const char32_t c : beginning.toUcs4()) {
        if (isBidiControl(c))
            continue;
        joined = joinsWhatIsBefore(c) ? joined + 1 : 0;
        if (joined > mostJoined)
            continue;
        if (joined == 0 && ++characters > mostCharacters)
            return line + ellipsis;
        line += isControlOrSeparator(c) ? QStringView(u" ") : QStringView(QChar::fromUcs4(c));
    }
    const bool isWhole = beginning.size() == foreign.size() && line.isEmpty() == foreign.isEmpty();
    return isWhole ? line : line + ellipsis;
}

} // namespace ostrel
