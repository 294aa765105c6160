#include "OneLine.h"

#include "ForeignTexts.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

struct Case
{
    const char *name;
    QString foreign;
    QString line;
};

void PrintTo(const Case &sample, std::ostream *out)
{
    *out << sample.name;
}

class OneLineTest : public testing::TestWithParam<Case>
{
};

class ForeignTextTest : public testing::TestWithParam<ForeignText>
{
};

Case unchanged(const char *name, const QString &text)
{
    return {name, text, text};
}

QString letters(int count)
{
    return QString(count, u'a');
}

std::vector<Case> cases()
{
    const auto accents = [](int count) { return QString(count, QChar(0x0301)); };
    const auto astral = QStringLiteral("\U0001F600");
    return {
        unchanged("Nothing", QString()),
        unchanged("AName", QStringLiteral("Shop & Söhne – 日本")),
        unchanged("InnerBlanksStay", QStringLiteral("  a  b\u00A0 ")),
        unchanged("PercentSigns", QStringLiteral("100%1 %s")),
        unchanged("HebrewAndArabic", QStringLiteral("חנות متجر")),
        unchanged("JoinedEmoji", QStringLiteral("\U0001F469\u200D\U0001F469\u200D\U0001F467")),
        unchanged("FlagOfTags", QStringLiteral("\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E"
                                               "\U000E0067\U000E007F")),
        unchanged("HeartInRed", QStringLiteral("\u2764\uFE0F")),
        unchanged("NonJoiner", QStringLiteral("می\u200Cخواهم")),
        {"ControlsAreBlanks", QStringLiteral("a\x1b\x01z\u007F\u009B."), QStringLiteral("a  z  .")},
        {"NulIsABlank", QStringLiteral("a") + QChar(u'\0') + u'b', QStringLiteral("a b")},
        {"LineEndsAreBlanks", QStringLiteral("a\r\nb\vc\fd\u0085e\u2028f\u2029g\th"),
         QStringLiteral("a  b c d e f g h")},
        {"BidiControlsAreLeftOut",
         QStringLiteral(
             "a\u061C\u200E\u200F\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069b"),
         QStringLiteral("ab")},
        {"HighSurrogateAlone", QStringLiteral("a") + QChar(0xD83D) + u'b',
         QStringLiteral("a\uFFFDb")},
        {"LowSurrogateAlone", QString(QChar(0xDE00)), QStringLiteral("\uFFFD")},
        {"NothingLeft", QStringLiteral("\u202E\u202C"), QStringLiteral("…")},
        unchanged("TwoHundredCharacters", letters(200)),
        {"OneMore", letters(201), letters(200) + u'…'},
        unchanged("TwoHundredSurrogatePairs", astral.repeated(200)),
        {"OneMoreSurrogatePair", astral.repeated(201), astral.repeated(200) + u'…'},
        unchanged("MarksBelongToTheLastCharacter", letters(200) + accents(8)),
        {"MarksOfTheFirstCutOffCharacterToo", letters(201) + accents(3), letters(200) + u'…'},
        unchanged("EightMarks", u'a' + accents(8)),
        {"TheNinthMark", u'a' + accents(9) + u'b', u'a' + accents(8) + u'b'},
        {"InvisibleOnesCountAsMarks", u'a' + QString(9, QChar(0x200B)) + u'b',
         u'a' + QString(8, QChar(0x200B)) + u'b'},
        {"AMillionMarks", u'a' + accents(1'000'000), u'a' + accents(8) + u'…'},
        {"BidiControlsBeforeALongText", QString(100'000, QChar(0x200F)) + u'a',
         QStringLiteral("…")},
        {"BidiControlsBehindAName", QStringLiteral("Shop") + QString(100'000, QChar(0x200F)),
         QStringLiteral("Shop…")},
        {"NoHalfPairWhereReadingEnds",
         QString(4095, QChar(0x200F)) + astral + QString(100, QChar(0x200F)), QStringLiteral("…")},
        unchanged("TheLongestLine",
                  (astral + QStringLiteral("\U000E0067").repeated(8)).repeated(200)),
    };
}

} // namespace

TEST_P(OneLineTest, IsShownAs)
{
    EXPECT_EQ(oneLine(GetParam().foreign), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(Table, OneLineTest, testing::ValuesIn(cases()),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_P(ForeignTextTest, IsFitForPeopleOnOneLine)
{
    EXPECT_FALSE(oneLine(GetParam().text).isEmpty());
    EXPECT_TRUE(isFitForPeople(oneLine(GetParam().text)));
}

INSTANTIATE_TEST_SUITE_P(Table, ForeignTextTest, testing::ValuesIn(foreignTexts()),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace ostrel::test
