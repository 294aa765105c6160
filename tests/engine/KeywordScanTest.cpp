#include "KeywordScan.h"

#include "KeywordSearch.h"
#include "ScopedLocale.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace ostrel::test {

namespace {

/// Characters that read differently beside others, in some language or in all of them.
constexpr std::u32string_view trouble =
    // Latin, and what some languages make of it
    U"aAbceEhHiIlLnNoOzZsSkK"
    U"\u0131\u0130\u00f6\u00d6\u00df\u1e9e\u00e5\u00c5\u00c5\u01c5\u01c6\u0140\u00f1\u00e6\u00c6"
    U"\u0153\u00e9\u00c9\u0117\u0119\u00ff\u0149"
    // Marks in two classes and more, and ones that weigh nothing
    U"\u0300\u0301\u0302\u0307\u0308\u030a\u0323\u0327\u0328\u0345\u034f\u00b7"
    // Controls, joiners, blanks, punctuation
    U"\000\001\t\n\r\x85"
    U"\u00ad\u200b\u200c\u200d\u2028\ufe0f \u00a0\u3000-_.'\u2019"
    // Compatibility forms
    U"\uff45\uff25\u2460\u00bd\u2177\u338f\ufb01\u2116\uff76\uff9e\uff70\u8c48"
    // Greek and Cyrillic
    U"\u03a3\u03c3\u03c2\u0390\u03b0\u03ac\u0439\u0419\u0438\u0418\u0306\u0457\u0451\u0401"
    // Kana, Han, Hangul
    U"\u30ab\u30ac\u304b\u3099\u30fc\u3042\u3041\u309d\u309e\u3005\u4e00\u6f22\uac00\uac01\uae4d"
    U"\u3131\u1100\u1161\u11a8"
    // Thai, Lao, Indic, Tibetan, Burmese
    U"\u0e40\u0e01\u0e41\u0e48\u0e33\u0ec0\u0e81\u0915\u093c\u0915\u093c\u094d\u09b7\u0995\u09cb"
    U"\u09c7\u09be\u0bc6\u0bbe\u0f71\u0f72\u0f73\u0f80\u0f40\u0fb2\u0f81\u1000\u1031"
    // Hebrew, Arabic
    U"\u05e9\u05c1\ufb2a\u0644\u0627\ufefb\u0622\u0627\u0653\u0600"
    // Beyond the BMP, and no characters at all
    U"\U0001f7e2\U0001f468\U0001f1e6\U0001f1e7\U0001f3fd\U00020000\U0001d15e\U0001d157\U0001d165"
    U"\ufffe\uffff\ue000\U0010ffff\u0378\ufdd0";

constexpr std::array locales{
    "en_US",
    "tr_TR",
    "az",
    "lt_LT",
    "da_DK",
    "es@collation=traditional",
    "de@collation=phonebook",
    "sv_SE",
    "ja_JP",
    "ko_KR",
    "zh_CN",
    "th_TH",
    "ar",
    "he",
    "fa",
    "hu",
    "cs",
    "sk",
    "hr",
    "cy",
    "vi",
    "fr_CA",
    "ca",
    "ru",
    "uk",
    "sr",
    "el",
    "hi",
    "bn",
    "ta",
    "my",
    "km",
    "lo",
    "bo",
    "en_US_POSIX",
};

std::u16string_view viewOf(const QString &text)
{
    return {reinterpret_cast<const char16_t *>(text.utf16()), std::size_t(text.size())};
}

QString toText(std::u32string_view characters)
{
    return QString::fromUcs4(characters.data(), qsizetype(characters.size()));
}

/// What ICU says by itself.
bool isFoundByIcu(const UCollator *collator, std::u16string_view text, std::u16string_view keyword)
{
    UErrorCode status = U_ZERO_ERROR;
    const IcuSearchHandle search(usearch_openFromCollator(keyword.data(), int32_t(keyword.size()),
                                                          text.data(), int32_t(text.size()),
                                                          collator, nullptr, &status));
    const int32_t position = usearch_first(search.get(), &status);
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    return position != USEARCH_DONE;
}

std::string shown(const QString &text)
{
    QStringList units;
    for (const QChar unit : text)
        units.append(QString::number(unit.unicode(), 16));
    return units.join(QLatin1Char(' ')).toStdString();
}

/// Keywords and texts of few characters, so that the ones are often in the others, or nearly.
class Texts
{
public:
    explicit Texts(unsigned seed)
        : m_random(seed)
    {
    }

    std::size_t number(std::size_t bound) { return m_random() % bound; }

    void chooseCharacters()
    {
        m_characters = U"xq";
        for (std::size_t i = number(7); i < 8; ++i)
            m_characters += character();
    }

    QString text(std::size_t longest)
    {
        std::u32string characters;
        for (std::size_t i = number(longest + 1); i > 0; --i)
            characters += m_characters[number(m_characters.size())];
        return toText(characters);
    }

    QString keyword() { return text(4) + toText(m_characters.substr(number(3), 1)); }

    QString textAround(const QString &keyword)
    {
        QString made = text(24);
        if (number(2) == 0)
            made += keyword + text(8);
        if (number(4) == 0)
            made = made.normalized(QString::NormalizationForm_D);
        // Far from each other, so that ICU sees one without the other.
        if (number(3) == 0)
            made.insert(qsizetype(number(std::size_t(made.size()) + 1)), QString(80, u'w'));
        return made + u'w';
    }

private:
    char32_t character()
    {
        if (number(12) == 0)
            return char32_t(number(0x3000));
        return number(3) == 0 ? U"aeichlzo"[number(8)] : trouble[number(trouble.size())];
    }

    std::mt19937 m_random;
    std::u32string m_characters;
};

} // namespace

TEST(KeywordScanTest, FindsWhatIcuFinds)
{
    Texts texts(20'261);
    int found = 0;
    int missed = 0;
    for (int round = 0; round < 12; ++round) {
        for (const char *locale : locales) {
            const ScopedLocale user(locale);
            const IcuCollator collator = makeSearchCollator();
            ASSERT_TRUE(collator) << locale;
            texts.chooseCharacters();
            const QString keyword = texts.keyword();
            KeywordScan scan(collator.get(), viewOf(keyword));
            for (int i = 0; i < 60; ++i) {
                const QString text = texts.textAround(keyword);
                const auto isFound = scan.isFoundIn(viewOf(text));
                if (!isFound)
                    break;
                ASSERT_EQ(*isFound, isFoundByIcu(collator.get(), viewOf(text), viewOf(keyword)))
                    << locale << ": " << shown(keyword) << " in " << shown(text);
                ++(*isFound ? found : missed);
            }
        }
    }
    EXPECT_GT(found, 3000);
    EXPECT_GT(missed, 3000);
}

TEST(KeywordScanTest, LeavesWhatItCantTellToIcu)
{
    const ScopedLocale user("en_US");
    const IcuCollator collator = makeSearchCollator();
    EXPECT_FALSE(KeywordScan(collator.get(), u"\u0001").isFoundIn(u"\u0001")) << "weighs nothing";

    UErrorCode status = U_ZERO_ERROR;
    ucol_setAttribute(collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_SHIFTED, &status);
    EXPECT_FALSE(KeywordScan(collator.get(), u"ab").isFoundIn(u"a-b")) << "blanks weigh nothing";
}

} // namespace ostrel::test
