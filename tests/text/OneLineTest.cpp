#include "OneLine.h"

#include "ForeignTexts.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

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
    const auto astral = u"\U0001F600"_s;
    return {
        unchanged("Nothing", QString()),
        unchanged("AName", u"Shop & Söhne – 日本"_s),
        unchanged("InnerBlanksStay", u"  a  b\u00A0 "_s),
        unchanged("PercentSigns", u"100%1 %s"_s),
        unchanged("HebrewAndArabic", u"חנות متجر"_s),
        unchanged("JoinedEmoji", u"\U0001F469\u200D\U0001F469\u200D\U0001F467"_s),
        unchanged("FlagOfTags", u"\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E"
                                "\U000E0067\U000E007F"_s),
        unchanged("HeartInRed", u"\u2764\uFE0F"_s),
        unchanged("NonJoiner", u"می\u200Cخواهم"_s),
        {"ControlsAreBlanks", u"a\x1b\x01z\u007F\u009B."_s, u"a  z  ."_s},
        {"NulIsABlank", u"a"_s + QChar(u'\0') + u'b', u"a b"_s},
        {"LineEndsAreBlanks", u"a\r\nb\vc\fd\u0085e\u2028f\u2029g\th"_s, u"a  b c d e f g h"_s},
        {"BidiControlsAreLeftOut",
         u"a\u061C\u200E\u200F\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069b"_s, u"ab"_s},
        {"HighSurrogateAlone", u"a"_s + QChar(0xD83D) + u'b', u"a\uFFFDb"_s},
        {"LowSurrogateAlone", QString(QChar(0xDE00)), u"\uFFFD"_s},
        {"NothingLeft", u"\u202E\u202C"_s, u"…"_s},
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
        {"BidiControlsBeforeALongText", QString(100'000, QChar(0x200F)) + u'a', u"…"_s},
        {"BidiControlsBehindAName", u"Shop"_s + QString(100'000, QChar(0x200F)), u"Shop…"_s},
        {"NoHalfPairWhereReadingEnds",
         QString(4095, QChar(0x200F)) + astral + QString(100, QChar(0x200F)), u"…"_s},
        unchanged("TheLongestLine", (astral + u"\U000E0067"_s.repeated(8)).repeated(200)),
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
