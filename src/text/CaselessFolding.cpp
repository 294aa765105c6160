#include "CaselessFolding.h"

#include "Utf16Walk.h"

#include <unicode/uchar.h>
#include <unicode/uloc.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>

namespace ostrel {

namespace {

/// The limit in the Stream-Safe Text Format.
constexpr std::size_t longestRowOfMarks = 30;
constexpr char16_t graphemeJoiner = 0x034f;
constexpr char16_t dot = 0x0307;
constexpr int classAbove = 230;
constexpr char32_t firstMark = 0x0300;

bool isUserTurkic()
{
    std::array<char, ULOC_LANG_CAPACITY> language{};
    UErrorCode status = U_ZERO_ERROR;
    uloc_getLanguage(nullptr, language.data(), ULOC_LANG_CAPACITY, &status);
    const std::string_view name(language.data());
    return name == "tr" || name == "az";
}

int combiningClass(char32_t character)
{
    return u_getCombiningClass(static_cast<UChar32>(character));
}

/// Fills @p target with the whole output of @p transform. False if ICU fails.
template<typename Transform>
bool fill(std::u16string &target, Transform transform)
{
    target.resize(std::max<std::size_t>(target.capacity(), 1));
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = transform(target.data(), static_cast<int32_t>(target.size()), &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        target.resize(static_cast<std::size_t>(length));
        status = U_ZERO_ERROR;
        length = transform(target.data(), length, &status);
    }
    if (U_FAILURE(status))
        return false;
    target.resize(static_cast<std::size_t>(length));
    return true;
}

} // namespace

CaselessFolding::CaselessFolding()
    : m_isTurkic(isUserTurkic())
    , m_decomposer(unorm2_getNFDInstance(&m_status))
{
}

void CaselessFolding::begin()
{
    m_begun.clear();
    m_starter = 0;
    m_marks = 0;
}

std::optional<std::u16string_view> CaselessFolding::fold(std::u16string_view text)
{
    if (U_FAILURE(m_status))
        return std::nullopt;
    appendSafely(text);
    return foldBegun(lastBoundary());
}

std::optional<std::u16string_view> CaselessFolding::flush()
{
    if (U_FAILURE(m_status))
        return std::nullopt;
    m_starter = 0;
    m_marks = 0;
    return foldBegun(m_begun.size());
}

/// Whether the decomposition of @p character begins with a character of combining class 0.
bool CaselessFolding::isStarter(char32_t character) const
{
    return character < firstMark ||
           unorm2_hasBoundaryBefore(m_decomposer, static_cast<UChar32>(character)) != 0;
}

/// How many marks of another class are at the end of the decomposition of @p character.
std::size_t CaselessFolding::marksIn(char32_t character) const
{
    std::array<char16_t, 32> parts{};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length =
        unorm2_getDecomposition(m_decomposer, static_cast<UChar32>(character), parts.data(),
                                static_cast<int32_t>(parts.size()), &status);
    if (length < 0)
        return isStarter(character) ? 0 : 1;
    std::size_t count = 0;
    for (auto index = static_cast<std::size_t>(length); index > 0; ++count) {
        if (combiningClass(takePrevious({parts.data(), static_cast<std::size_t>(length)}, index)) ==
            0)
            break;
    }
    return count;
}

void CaselessFolding::appendSafely(std::u16string_view text)
{
    std::size_t copied = 0;
    for (std::size_t next = 0; next < text.size();) {
        const std::size_t index = next;
        if (!shallCutBefore(takeNext(text, next)))
            continue;
        m_begun.append(text.substr(copied, index - copied)) += graphemeJoiner;
        copied = index;
    }
    m_begun.append(text.substr(copied));
}

bool CaselessFolding::shallCutBefore(char32_t character)
{
    if (isStarter(character)) {
        m_starter = character;
        m_marks = 0;
        return false;
    }
    if (m_marks == 0)
        m_marks = marksIn(m_starter);
    const std::size_t count = marksIn(character);
    const bool isTooMany = m_marks + count > longestRowOfMarks;
    m_marks = isTooMany ? count : m_marks + count;
    return isTooMany;
}

/// The index of the last starter: what follows it may be reordered with marks still to come.
std::size_t CaselessFolding::lastBoundary() const
{
    std::size_t index = m_begun.size();
    while (index > 0) {
        if (isStarter(takePrevious(m_begun, index)))
            break;
    }
    return index;
}

std::optional<std::u16string_view> CaselessFolding::foldBegun(std::size_t length)
{
    if (!decompose({m_begun.data(), length}, m_decomposed))
        return std::nullopt;
    m_begun.erase(0, length);
    if (m_isTurkic)
        joinDottedI();
    const uint32_t options = m_isTurkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT;
    const auto foldCase = [&](char16_t *target, int32_t capacity, UErrorCode *status) {
        return u_strFoldCase(target, capacity, m_decomposed.data(),
                             static_cast<int32_t>(m_decomposed.size()), options, status);
    };
    if (!fill(m_caseless, foldCase) || !decompose(m_caseless, m_folded))
        return std::nullopt;
    return m_folded;
}

bool CaselessFolding::decompose(std::u16string_view text, std::u16string &target) const
{
    return fill(target, [&](char16_t *begin, int32_t capacity, UErrorCode *status) {
        return unorm2_normalize(m_decomposer, text.data(), static_cast<int32_t>(text.size()), begin,
                                capacity, status);
    });
}

/// Replaces every "I" that has a dot above, the decomposition of "İ", with "i". Case folding alone
/// would take its "I" for the capital of "ı".
void CaselessFolding::joinDottedI()
{
    std::size_t kept = 0;
    std::size_t dropped = std::u16string::npos;
    for (std::size_t i = 0; i < m_decomposed.size(); ++i) {
        if (i == dropped)
            continue;
        char16_t unit = m_decomposed[i];
        if (unit == u'I') {
            dropped = dotAbove(i);
            if (dropped != std::u16string::npos)
                unit = u'i';
        }
        m_decomposed[kept++] = unit;
    }
    m_decomposed.resize(kept);
}

/// The index of the dot that belongs to the letter at @p capital; npos if there is none.
std::size_t CaselessFolding::dotAbove(std::size_t capital) const
{
    for (std::size_t next = capital + 1; next < m_decomposed.size();) {
        const std::size_t index = next;
        const char32_t mark = takeNext(m_decomposed, next);
        if (mark == dot)
            return index;
        if (combiningClass(mark) == 0 || combiningClass(mark) == classAbove)
            break;
    }
    return std::u16string::npos;
}

} // namespace ostrel
