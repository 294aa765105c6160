#include "CaselessSearch.h"
#include "FuzzTarget.h"

#include <QString>

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

using namespace ostrel;

const icu::Normalizer2 &decomposer()
{
    UErrorCode status = U_ZERO_ERROR;
    return *icu::Normalizer2::getNFDInstance(status);
}

icu::UnicodeString decomposed(const icu::UnicodeString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    return decomposer().normalize(text, status);
}

bool isMovable(UChar32 character)
{
    return u_getCombiningClass(character) != 0;
}

/// Whether @p character, decomposed, consists only of marks that have an order, and the number of
/// such marks at its end.
std::pair<bool, int> marksOf(UChar32 character)
{
    const icu::UnicodeString parts = decomposed(character);
    int count = 0;
    for (int i = parts.length(); i > 0; ++count) {
        i = parts.moveIndex32(i, -1);
        if (!isMovable(parts.char32At(i)))
            return {false, count};
    }
    return {true, count};
}

icu::UnicodeString streamSafe(const icu::UnicodeString &text)
{
    icu::UnicodeString safe;
    int row = 0;
    for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const UChar32 character = text.char32At(i);
        const auto [isMark, count] = marksOf(character);
        if (isMark && row + count > 30) {
            safe.append(UChar32(0x034f));
            row = 0;
        }
        row = isMark ? row + count : count;
        safe.append(character);
    }
    return safe;
}

/// Composes "İ" into one character again, even if other marks are between its parts.
icu::UnicodeString withDottedCapitals(icu::UnicodeString text)
{
    for (int i = 0; i < text.length(); ++i) {
        if (text[i] != u'I')
            continue;
        int k = i + 1;
        while (k < text.length() && isMovable(text.char32At(k)) &&
               u_getCombiningClass(text.char32At(k)) != 230)
            k = text.moveIndex32(k, 1);
        if (k < text.length() && text[k] == 0x0307) {
            text.remove(k, 1);
            text.setCharAt(i, 0x0130);
        }
    }
    return text;
}

std::u32string folded(const icu::UnicodeString &text, bool isTurkic)
{
    icu::UnicodeString canonical = decomposed(streamSafe(text));
    if (isTurkic)
        canonical = withDottedCapitals(canonical);
    canonical.foldCase(isTurkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT);
    const icu::UnicodeString result = decomposed(canonical);
    std::u32string characters;
    for (int i = 0; i < result.length(); i = result.moveIndex32(i, 1))
        characters += static_cast<char32_t>(result.char32At(i));
    return characters;
}

bool isSequenceEnd(const std::u32string &text, std::size_t index)
{
    if (index == text.size())
        return true;
    const auto next = UChar32(text[index]);
    if ((U_GET_GC_MASK(next) & U_GC_M_MASK) != 0)
        return false;
    const int type = u_getIntPropertyValue(next, UCHAR_HANGUL_SYLLABLE_TYPE);
    const int before = u_getIntPropertyValue(UChar32(text[index - 1]), UCHAR_HANGUL_SYLLABLE_TYPE);
    const bool afterVowel = before == U_HST_VOWEL_JAMO;
    return !(type == U_HST_VOWEL_JAMO && (before == U_HST_LEADING_JAMO || afterVowel)) &&
           !(type == U_HST_TRAILING_JAMO && (before == U_HST_TRAILING_JAMO || afterVowel));
}

std::optional<bool> searchWhole(const QByteArray &page, const QString &keyword, bool isTurkic)
{
    const QString text = QString::fromUtf8(page);
    // Text that isn't UTF-8 comes back changed.
    if (text.toUtf8() != page)
        return std::nullopt;
    const auto fold = [isTurkic](const QString &each) {
        return folded({reinterpret_cast<const char16_t *>(each.utf16()), int(each.size())},
                      isTurkic);
    };
    const std::u32string all = fold(text);
    const std::u32string wanted = fold(keyword);
    for (std::size_t at = all.find(wanted); at != std::u32string::npos;
         at = all.find(wanted, at + 1)) {
        if (wanted.empty() || isSequenceEnd(all, at + wanted.size()))
            return true;
    }
    return false;
}

std::optional<bool> searchInPieces(const QByteArray &page, const QString &keyword, qsizetype size)
{
    CaselessSearch search(keyword);
    for (qsizetype i = 0; i < page.size(); i += size)
        search.read(QByteArrayView(page).sliced(i, qMin(size, page.size() - i)));
    return search.finish();
}

} // namespace

std::vector<std::string_view> ostrel::fuzz::dictionary()
{
    return {
        "\xcc\x81",
        "\xcc\x87",
        "\xcc\xa3",
        "\xcd\x85",
        "\xcd\x84",
        "\xcd\x8f",
        "\xc3\xa9",
        "\xc3\x9f",
        "\xc4\xb0",
        "\xc4\xb1",
        "I",
        "i",
        "\xe1\x84\x92\xe1\x85\xa1\xe1\x86\xab",
        "\xed\x95\x9c",
        "\xed\x95\x98",
        "\xef\xac\x81",
        "\xe1\xbe\xb3",
        "\xe0\xbd\xb3",
        "\xf0\x9d\x85\xa5",
        "\xf0\x90\x90\x80",
        "\xcc\x81\xcc\xa3\xcc\x81\xcc\xa3\xcc\x81\xcc\xa3\xcc\x81\xcc\xa3\xcc\x81\xcc\xa3\xcc\x81"
        "\xcc\xa3\xcc\x81\xcc\xa3\xcc\x81\xcc\xa3",
        "\xed\xa0\x80",
        "\xc3",
        "\xff"};
}

// A page in pieces has the same result as the definition gives for the whole. The input consists of
// the size of the pieces, the language, the keyword's length, the keyword and the page.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 3)
        return 0;
    const bool isTurkic = data[1] % 2 == 1;
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(icu::Locale(isTurkic ? "tr_TR" : "en_US"), status);
    const QByteArray rest(reinterpret_cast<const char *>(data + 3), qsizetype(size - 3));
    const QString keyword = QString::fromUtf8(rest.left(data[2] % 8));
    const QByteArray page = rest.mid(data[2] % 8);
    if (searchInPieces(page, keyword, 1 + data[0] % 32) != searchWhole(page, keyword, isTurkic))
        std::abort();
    return 0;
}
