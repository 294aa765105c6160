#include "ForeignTexts.h"

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString repeated(char16_t c, qsizetype count)
{
    return QString(count, QChar(c));
}

/// Puts @p middle into "Shop", so that the text never looks empty.
QString around(const QString &middle)
{
    return u"Sh"_s + middle + u"op"_s;
}

bool isControl(char16_t c)
{
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
}

bool isBidiControl(char16_t c)
{
    return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

bool isHalfAPair(const QString &text, qsizetype at)
{
    const QChar before = at > 0 ? text[at - 1] : QChar();
    const QChar after = at + 1 < text.size() ? text[at + 1] : QChar();
    return (text[at].isHighSurrogate() && !after.isLowSurrogate()) ||
           (text[at].isLowSurrogate() && !before.isHighSurrogate());
}

qsizetype longestRunOfMarks(const QString &text)
{
    qsizetype longest = 0;
    qsizetype run = 0;
    for (const QChar c : text) {
        run = c.isMark() ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

} // namespace

const QList<ForeignText> &foreignTexts()
{
    static const QList<ForeignText> texts = {
        {"Escape", u"\x1b]0;owned\x07\x1b[2J\x1b[31mShop"_s},
        {"EightBitEscape", u"\u009B2J\u009B31mShop"_s},
        {"ForgedRow", u"Shop\r\nUP       Bank"_s},
        {"LineSeparator", around(u"\u2028"_s)},
        {"ParagraphSeparator", around(u"\u2029"_s)},
        {"NextLine", around(u"\u0085"_s)},
        {"Tab", around(u"\t"_s)},
        {"VerticalTabAndFormFeed", around(u"\v\f"_s)},
        {"Nul", around(QString(QChar(u'\0')))},
        {"BackspaceAndDelete", around(u"\b\u007F"_s)},
        {"Override", u"\u202Epohs"_s},
        {"Isolate", u"Shop\u2067\u2066"_s},
        {"NestedEmbeddings", repeated(0x202B, 120'000) + u"Shop"_s},
        {"BidiMarks", u"Shop"_s + repeated(0x200F, 120'000)},
        {"BidiMarksAlone", repeated(0x061C, 3)},
        {"MarksOnOneLetter", u"Shop"_s + repeated(0x0301, 120'000)},
        {"MarksAlone", repeated(0x0489, 120'000)},
        {"ZeroWidthBlanks", around(repeated(0x200B, 120'000))},
        {"VariationSelectors", around(repeated(0xFE0F, 120'000))},
        {"Tags", around(u"\U000E0041"_s.repeated(60'000))},
        {"LoneHighSurrogate", around(QString(QChar(0xD83D)))},
        {"LoneLowSurrogate", around(QString(QChar(0xDE00)))},
        {"Emoji", u"\U0001F600"_s.repeated(3000)},
        {"Million", u"Shop"_s + repeated(u'W', 1'000'000)},
        {"MillionLines", u"Shop\n"_s.repeated(200'000)},
        {"MillionSlashes", repeated(u'/', 500'000) + u"Shop"_s + repeated(u'/', 500'000)},
        {"Placeholders", u"Shop %1 %2 %L3 %n %s %.0f %%"_s},
        {"Markup", u"<b>Shop</b> &amp; <img src='http://127.0.0.1/'>"_s},
    };
    return texts;
}

testing::AssertionResult isFitForPeople(const QString &text)
{
    // Two code units per code point, nine code points per character, and the text that we add.
    constexpr qsizetype longest = 2 * 9 * 200 + 100;
    constexpr qsizetype mostMarks = 8;
    if (text.size() > longest)
        return testing::AssertionFailure() << text.size() << " code units";
    if (longestRunOfMarks(text) > mostMarks)
        return testing::AssertionFailure() << longestRunOfMarks(text) << " marks in a row";
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (isControl(c) || isBidiControl(c) || isHalfAPair(text, i))
            return testing::AssertionFailure() << "U+" << QString::number(c, 16).toStdString();
    }
    return testing::AssertionSuccess();
}

} // namespace ostrel::test
