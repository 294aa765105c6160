#include "SequenceMatcher.h"

#include "Utf16Walk.h"

#include <unicode/uchar.h>

namespace ostrel {

namespace {

std::u32string toUtf32(std::u16string_view text)
{
    std::u32string characters;
    for (std::size_t next = 0; next < text.size();)
        characters.push_back(takeNext(text, next));
    return characters;
}

std::vector<std::size_t> fallbacksOf(const std::u32string &wanted)
{
    std::vector<std::size_t> fallbacks(wanted.size() + 1, 0);
    for (std::size_t end = 1; end < wanted.size(); ++end) {
        std::size_t matched = fallbacks[end];
        while (matched != 0 && wanted[matched] != wanted[end])
            matched = fallbacks[matched];
        fallbacks[end + 1] = wanted[matched] == wanted[end] ? matched + 1 : 0;
    }
    return fallbacks;
}

bool isMark(char32_t character)
{
    return (U_GET_GC_MASK(static_cast<UChar32>(character)) & U_GC_M_MASK) != 0;
}

int syllableType(char32_t character)
{
    return u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_HANGUL_SYLLABLE_TYPE);
}

bool continuesSyllable(char32_t character, char32_t before)
{
    switch (syllableType(character)) {
    case U_HST_VOWEL_JAMO:
        return syllableType(before) == U_HST_LEADING_JAMO ||
               syllableType(before) == U_HST_VOWEL_JAMO;
    case U_HST_TRAILING_JAMO:
        return syllableType(before) == U_HST_VOWEL_JAMO ||
               syllableType(before) == U_HST_TRAILING_JAMO;
    default:
        return false;
    }
}

char32_t toSmall(char character)
{
    const bool isCapital = character >= 'A' && character <= 'Z';
    return static_cast<char32_t>(isCapital ? character - 'A' + 'a' : character);
}

} // namespace

SequenceMatcher::SequenceMatcher(std::u16string_view wanted)
    : m_wanted(toUtf32(wanted))
    , m_fallbacks(fallbacksOf(m_wanted))
{
    begin();
}

void SequenceMatcher::begin()
{
    m_matched = 0;
    m_isEndOpen = false;
    m_isFound = m_wanted.empty();
}

void SequenceMatcher::take(std::u16string_view text)
{
    for (std::size_t next = 0; next < text.size() && !m_isFound;)
        takeCharacter(takeNext(text, next));
}

void SequenceMatcher::takeAscii(std::string_view text)
{
    for (std::size_t next = 0; next < text.size() && !m_isFound; ++next)
        takeCharacter(toSmall(text[next]));
}

void SequenceMatcher::finish()
{
    m_isFound = m_isFound || m_isEndOpen;
}

void SequenceMatcher::takeCharacter(char32_t character)
{
    if (m_isEndOpen) {
        m_isEndOpen = false;
        if (!isContinuedBy(character)) {
            m_isFound = true;
            return;
        }
    }
    while (m_matched != 0 && m_wanted[m_matched] != character)
        m_matched = m_fallbacks[m_matched];
    if (m_wanted[m_matched] != character)
        return;
    if (++m_matched == m_wanted.size()) {
        m_isEndOpen = true;
        m_matched = m_fallbacks[m_matched];
    }
}

bool SequenceMatcher::isContinuedBy(char32_t character) const
{
    return isMark(character) || continuesSyllable(character, m_wanted.back());
}

} // namespace ostrel
