#include "CaselessSearch.h"

#include "Printers.h"
#include "ScopedLocale.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ostream>
#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// The result of a search in @p page if it comes in pieces of @p pieceSize.
std::optional<bool> search(const QByteArray &page, const QString &keyword, qsizetype pieceSize)
{
    CaselessSearch search(keyword);
    for (qsizetype i = 0; i < page.size(); i += pieceSize)
        search.read(QByteArrayView(page).sliced(i, qMin(pieceSize, page.size() - i)));
    return search.finish();
}

std::optional<bool> search(const QByteArray &page, const QString &keyword)
{
    return search(page, keyword, qMax<qsizetype>(page.size(), 1));
}

struct Case
{
    const char *name;
    const char *page;
    const char *keyword;
    bool isFound;
    const char *locale = "en_US";
};

void PrintTo(const Case &example, std::ostream *out)
{
    *out << example.name;
}

class CaselessSearchTest : public testing::TestWithParam<Case>
{
};

/// So long that it is searched in several blocks.
const QByteArray &filler()
{
    static const QByteArray text(20'000, 'x');
    return text;
}

} // namespace

TEST_P(CaselessSearchTest, FindsWhatMatches)
{
    const Case &c = GetParam();
    const ScopedLocale user(c.locale);
    const QString keyword = QString::fromUtf8(c.keyword);
    const QByteArray page(c.page);
    for (qsizetype pieceSize = 1; pieceSize <= page.size() + 1; ++pieceSize)
        EXPECT_EQ(search(page, keyword, pieceSize), c.isFound) << pieceSize;
}

TEST_P(CaselessSearchTest, FindsItAnywhereInALongPage)
{
    const Case &c = GetParam();
    const ScopedLocale user(c.locale);
    const QString keyword = QString::fromUtf8(c.keyword);
    const QByteArray among = filler() + "; " + c.page;
    EXPECT_EQ(search(among, keyword), c.isFound);
    EXPECT_EQ(search(c.page + QByteArray("; ") + filler(), keyword), c.isFound);
    // Each of its bytes is at the border of two blocks once.
    for (qsizetype shift = 0; shift < 64; ++shift) {
        const QByteArray before(qsizetype(16) * 1024 - shift, '-');
        EXPECT_EQ(search(before + c.page, keyword), c.isFound) << shift;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, CaselessSearchTest,
    testing::Values(
        Case{"UpperFoundLower", "ok", "OK", true},
        Case{"LowerFoundUpper", "STATUS: OK", "ok", true},
        Case{"InTheMiddle", "all is okay here", "is ok", true},
        Case{"AtTheVeryEnd", "all is well", "well", true},
        Case{"NotWholeAtTheEnd", "all is wel", "well", false},
        Case{"AfterAFalseStart", "aaaaab", "aaab", true}, Case{"EmptyPage", "", "OK", false},
        Case{"EmptyKeyword", "page", "", true}, Case{"EmptyInEmpty", "", "", true},
        Case{"PunctuationCounts", "a-b", "ab", false}, Case{"BlanksCount", "a  b", "a b", false},
        Case{"NoPattern", "abc", "a.c", false},
        Case{"PatternCharactersAsText", "price [a.*] (x|y)$", "[A.*] (x|y)$", true},
        Case{"Emoji", "status \U0001F7E2 fine", "\U0001F7E2", true},
        Case{"ComposedInDecomposed", "le cafe\u0301 est", "caf\u00e9", true},
        Case{"DecomposedInComposed", "le caf\u00c9 est", "cafe\u0301", true},
        Case{"AccentCounts", "le cafe est", "caf\u00e9", false},
        Case{"NoAccentCounts", "le caf\u00e9 est", "cafe", false},
        Case{"NoAccentCountsDecomposed", "le cafe\u0301 est", "cafe", false},
        Case{"NoAccentCountsAtTheEnd", "le cafe\u0301", "cafe", false},
        Case{"FirstWithAnAccentThenWithout", "cafe\u0301 cafe", "cafe", true},
        Case{"AMarkOverFFFF", "a\U0001D165", "a", false},
        Case{"ASpacingMark", "\u0915\u093E", "\u0915", false},
        Case{"AnEnclosingMark", "1\u20E3", "1", false},
        Case{"SharpSIsTwo", "STRASSE", "stra\u00dfe", true},
        Case{"TwoAreSharpS", "stra\u00dfe", "STRASSE", true},
        Case{"CapitalSharpS", "STRA\u1E9EE", "stra\u00dfe", true},
        Case{"SharpSInCapitalSharpS", "stra\u00dfe", "STRA\u1E9EE", true},
        Case{"LongS", "me\u017F\u017Fage", "MESSAGE", true},
        Case{"LongSInTheKeyword", "message", "me\u017F\u017Fage", true},
        Case{"Kelvin", "300 \u212A", "300 k", true},
        Case{"KelvinInTheKeyword", "300 K", "300 \u212A", true},
        Case{"Angstrom", "1 \u212B", "1 \u00e5", true},
        Case{"AngstromDecomposed", "1 A\u030A", "1 \u212B", true},
        Case{"FinalSigma", "\u039F\u0394\u039F\u03A3", "\u03BF\u03B4\u03BF\u03C2", true},
        Case{"MiddleSigma", "\u03BF\u03B4\u03BF\u03C2", "\u03BF\u03B4\u03BF\u03C3", true},
        Case{"IotaBelow", "\u1FB3", "\u0391\u0399", true},
        Case{"Ligature", "\uFB01le", "FILE", true},
        Case{"LigatureInTheKeyword", "file", "\uFB01le", true},
        Case{"Cyrillic", "\u0412\u0421\u0401", "\u0432\u0441\u0451", true},
        Case{"CyrillicWithoutItsDots", "\u0412\u0421\u0415", "\u0432\u0441\u0451", false},
        Case{"TwoMarksInOneOrder", "vie\u0323\u0302t", "vi\u1EC7t", true},
        Case{"TwoMarksInTheOther", "vie\u0302\u0323t", "VI\u1EC6T", true},
        Case{"TwoMarksHalfComposed", "vi\u00EA\u0323t", "vi\u1EB9\u0302t", true},
        Case{"OneMarkOfTwo", "vi\u1EC7t", "vi\u00EA", false},
        Case{"SuperscriptIsNoDigit", "x\u00B2", "x2", false},
        Case{"DigitIsNoSuperscript", "x2", "x\u00B2", false},
        Case{"WideDigitsAreOthers", "\uFF11\uFF10", "10", false},
        Case{"DigitsAreNoWideOnes", "10", "\uFF11\uFF10", false},
        Case{"WideLettersHaveCase", "\uFF21", "\uFF41", true},
        Case{"KatakanaIsNoHiragana", "\u30A8\u30E9\u30FC", "\u3048\u3089\u30FC", false},
        Case{"HiraganaIsNoKatakana", "\u3048\u3089\u30FC", "\u30A8\u30E9\u30FC", false},
        Case{"VoicedKana", "\u304B\u3099", "\u304C", true},
        Case{"VoicedIsNotVoiceless", "\u304C", "\u304B", false},
        Case{"Hangul", "\uD55C\uAD6D", "\uD55C", true},
        Case{"HangulInJamos", "\u1112\u1161\u11AB", "\uD55C", true},
        Case{"JamosInHangul", "\uD55C", "\u1112\u1161\u11AB", true},
        Case{"AnOpenSyllableIsNotInAClosedOne", "\uD55C", "\uD558", false},
        Case{"ALeadingJamoIsNotInASyllable", "\uD558", "\u1112", false},
        Case{"AnOpenSyllableBeforeAnother", "\uD558\uB098", "\uD558", true},
        Case{"AVowelAfterALatinLetter", "a\u1161", "a", true},
        Case{"MathematicalLettersHaveNoCase", "\U0001D400", "\U0001D41A", false},
        Case{"DeseretHasCase", "\U00010400", "\U00010428", true},
        Case{"EnglishDots", "FILE", "file", true},
        Case{"EnglishDottedCapital", "F\u0130LE", "fi\u0307le", true},
        Case{"EnglishDottedIsNoPlainI", "F\u0130LE", "file", false},
        Case{"EnglishDotless", "f\u0131le", "file", false},
        Case{"TurkishPlainCapitalIsDotless", "FILE", "f\u0131le", true, "tr_TR"},
        Case{"TurkishPlainCapitalIsNotDotted", "FILE", "file", false, "tr_TR"},
        Case{"TurkishDottedCapital", "F\u0130LE", "file", true, "tr_TR"},
        Case{"TurkishDottedInTheKeyword", "file", "F\u0130LE", true, "tr_TR"},
        Case{"TurkishDottedDecomposed", "FI\u0307LE", "file", true, "tr_TR"},
        Case{"TurkishDottedWithAMarkBelow", "FI\u0323\u0307LE", "fi\u0323le", true, "tr_TR"},
        Case{"TurkishDotOverAnotherMark", "FI\u0301\u0307LE", "fi\u0301le", false, "tr_TR"},
        Case{"TurkishRest", "\u00C7OK \u015E\u0130K", "\u00E7ok \u015Fik", true, "tr_TR"},
        Case{"AzerbaijaniToo", "F\u0130LE FILE", "file f\u0131le", true, "az_AZ"},
        Case{"GermanIsNotTurkic", "FILE", "file", true, "de_DE"},
        Case{"PosixIsNotTurkic", "FILE", "file", true, "en_US_POSIX"}),
    [](const auto &each) { return std::string(each.param.name); });

TEST(CaselessSearchUtf8Test, InvalidUtf8AnywhereHasNoResult)
{
    for (const QByteArray &wrong :
         {QByteArray("\xff\xfe"), QByteArray("\xe9"), QByteArray("\xc0\xaf"),
          QByteArray("\xc1\xbf"), QByteArray("\xe0\x80\xaf"), QByteArray("\xf0\x80\x80\xaf"),
          QByteArray("\xed\xa0\x80"), QByteArray("\xed\xbf\xbf"), QByteArray("\xf4\x90\x80\x80"),
          QByteArray("\xf5\x80\x80\x80"), QByteArray("\x80"), QByteArray("\xc3"),
          QByteArray("\xe3\x82"), QByteArray("\xf0\x9f\x98"), QByteArray("\xc3\xa9\xc3"),
          QByteArray("\xe3\x82 ")}) {
        const QByteArray cases[] = {wrong, "OK " + wrong,
                                    wrong.at(0) == '\x80' ? wrong : "é" + wrong,
                                    "OK" + filler() + wrong};
        for (const QByteArray &page : cases) {
            for (const qsizetype pieceSize : {1, 2, 3, 5, 100'000})
                EXPECT_EQ(search(page, u"OK"_s, pieceSize), std::nullopt)
                    << page.right(8).toHex().constData() << " " << pieceSize;
        }
    }
}

TEST(CaselessSearchUtf8Test, ValidUtf8HasAResult)
{
    for (const QByteArray &page :
         {QByteArray("\xf4\x8f\xbf\xbf"), QByteArray("\xef\xbf\xbf"), QByteArray("\xed\x9f\xbf"),
          QByteArray("\xee\x80\x80"), QByteArray("\0", 1), QByteArray("\xef\xbb\xbf")})
        EXPECT_EQ(search(page, u"OK"_s), false);
}

TEST(CaselessSearchUtf8Test, BeginningAnotherPageForgetsTheFirst)
{
    CaselessSearch search(u"ok"_s);
    search.read("o\xff");
    EXPECT_EQ(search.finish(), std::nullopt);
    search.begin();
    search.read("ok e\xcc");
    search.begin();
    search.read("e\xcc\x81 o");
    EXPECT_EQ(search.finish(), false);
    search.begin();
    search.read("k");
    EXPECT_EQ(search.finish(), false) << "the other page's letter";
    search.begin();
    search.read("ok");
    EXPECT_EQ(search.finish(), true);
}

TEST(CaselessSearchUtf8Test, AnInvalidKeywordIsNeverFound)
{
    EXPECT_EQ(search("page", QString(QChar(0xd800))), false);
}

TEST(CaselessSearchMarksTest, ALongRowOfThemIsStillOneSequence)
{
    const QByteArray marks = QByteArray("\xcc\x81").repeated(1000);
    EXPECT_EQ(search("cafe" + marks, u"cafe"_s), false);
    EXPECT_EQ(search("cafe" + marks + " cafe", u"cafe"_s), true);
    const QString keyword = QString::fromUtf8("cafe" + marks);
    for (const qsizetype pieceSize : {1, 7, 100'000})
        EXPECT_EQ(search("CAFE" + marks, keyword, pieceSize), true) << pieceSize;
}

namespace {

/// The processor time of searching @p page, the shorter of two.
std::chrono::duration<double> costOf(const QByteArray &page, const QString &keyword)
{
    std::clock_t shortest = std::numeric_limits<std::clock_t>::max();
    for (int round = 0; round < 2; ++round) {
        const std::clock_t begin = std::clock();
        EXPECT_EQ(search(page, keyword, 64 * 1024), false);
        shortest = std::min(shortest, std::clock() - begin);
    }
    return std::chrono::duration<double>(double(shortest) / CLOCKS_PER_SEC);
}

struct Row
{
    const char *name;
    const char *row; ///< The page is made of its repetitions.
    const char *keyword;
};

void PrintTo(const Row &example, std::ostream *out)
{
    *out << example.name;
}

class CaselessSearchCostTest : public testing::TestWithParam<Row>
{
};

QByteArray pageOf(const QByteArray &row, qsizetype mebibytes)
{
    return row.repeated(mebibytes * 1024 * 1024 / row.size());
}

} // namespace

TEST_P(CaselessSearchCostTest, GrowsNoFasterThanThePage)
{
    const ScopedLocale user("en_US");
    const QString keyword = QString::fromUtf8(GetParam().keyword);
    const QByteArray row(GetParam().row);
    const auto small = costOf(pageOf(row, 1), keyword);
    EXPECT_LT(costOf(pageOf(row, 16), keyword) / small, 16 * 2.5);
}

INSTANTIATE_TEST_SUITE_P(
    Pages, CaselessSearchCostTest,
    testing::Values(Row{"Ascii", "<td>All systems operational</td>\n", "internal server error"},
                    Row{"FalseStarts", "aaaaaaaa", "aaaaaaaaaaaaaaaab"},
                    Row{"Decomposed", "cafe\u0301 ", "caf\u00e9 ferm\u00e9"},
                    // In the wrong order, so that sorting would move each past half of the others.
                    Row{"NothingButMarks", "\u0301\u0316", "caf\u00e9"}),
    [](const auto &each) { return std::string(each.param.name); });

} // namespace ostrel::test
