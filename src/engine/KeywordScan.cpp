#include "KeywordScan.h"

#include "Utf16Walk.h"

#include <algorithm>

namespace ostrel {

// The text is read as the row of its characters' weights, in which the keyword's are looked for
// (Knuth, Morris and Pratt). That row is what ICU compares, except round doubtful characters, which
// are left to ICU with as much beside them as a match can take in. And a match counts for ICU only
// if it begins and ends between two letters: plain characters see to that by themselves, and a
// match that any other has to do with is left to ICU as well. Stretches that are handed over begin
// and end between two plain characters, so that what lies beyond can't matter.

namespace {

/// To begin a search takes ICU as long as to go on for so many characters.
constexpr std::size_t shortestGap = 64;

} // namespace

KeywordScan::KeywordScan(const UCollator *collator, std::u16string_view keyword)
    : m_icu(collator, keyword)
    , m_readings(collator, keyword)
    , m_keyword(m_readings.keyword())
{
    if (m_readings.areUsable())
        makeFallbacks();
}

std::optional<bool> KeywordScan::isFoundIn(std::u16string_view text)
{
    if (!m_readings.areUsable())
        return std::nullopt;
    m_text = text;
    m_position = m_matched = m_stretchBegin = m_stretchEnd = 0;
    return findInText();
}

void KeywordScan::makeFallbacks()
{
    m_fallbacks.assign(m_keyword.size() + 1, 0);
    for (std::size_t end = 1; end < m_keyword.size(); ++end) {
        std::size_t matched = m_fallbacks[end];
        while (matched != 0 && m_keyword[matched] != m_keyword[end])
            matched = m_fallbacks[matched];
        m_fallbacks[end + 1] = m_keyword[matched] == m_keyword[end] ? matched + 1 : 0;
    }
}

bool KeywordScan::findInText()
{
    while (m_position < m_text.size()) {
        passPlain();
        const bool isFound = m_matched == m_keyword.size() ? isFoundHere() : isFoundPassingOther();
        if (isFound)
            return true;
    }
    return isFoundInStretch();
}

/// Goes on to the end of a match, or to a character that isn't plain.
void KeywordScan::passPlain()
{
    const Weight *const keyword = m_keyword.data();
    std::size_t matched = m_matched;
    std::size_t position = m_position;
    for (; position < m_text.size() && matched < m_keyword.size(); ++position) {
        const auto code = m_readings.codeAt(m_text, position);
        if (!KeywordReadings::isPlain(code))
            break;
        while (matched != 0 && keyword[matched] != code)
            matched = m_fallbacks[matched];
        matched += std::size_t(keyword[matched] == code);
    }
    m_matched = matched;
    m_position = position;
}

bool KeywordScan::isFoundPassingOther()
{
    if (m_position == m_text.size())
        return false;
    const std::size_t begin = m_position;
    const auto &reading = m_readings.reading(takeNext(m_text, m_position));
    if (reading.isDoubtful) {
        m_matched = 0;
        return isFoundBefore(reachBack(begin), reachForward(m_position));
    }
    bool isFound = false;
    for (const Weight weight : reading.weights) {
        match(weight);
        isFound = isFound || (m_matched == m_keyword.size() && isFoundHere());
    }
    return isFound;
}

bool KeywordScan::isFoundHere()
{
    m_matched = m_fallbacks[m_matched];
    if (isCertain())
        return true;
    return isFoundBefore(reachBack(m_position), edgeAfter(std::max(m_position, m_stretchEnd)));
}

/// Whether the match that ends here, and what stands beside it, are plain.
bool KeywordScan::isCertain()
{
    if (m_position < m_keyword.size())
        return false;
    const std::size_t begin = m_position - m_keyword.size();
    const std::size_t end = std::min(m_position + 1, m_text.size());
    for (std::size_t i = begin == 0 ? 0 : begin - 1; i < end; ++i) {
        if (!isPlainAt(i))
            return false;
    }
    return true;
}

void KeywordScan::match(Weight weight)
{
    while (m_matched != 0 && m_keyword[m_matched] != weight)
        m_matched = m_fallbacks[m_matched];
    m_matched += std::size_t(m_keyword[m_matched] == weight);
}

bool KeywordScan::isEdge(std::size_t index)
{
    return index == 0 || index == m_text.size() || (isPlainAt(index - 1) && isPlainAt(index));
}

/// Where a stretch has to begin so that it holds every match that ends at @p index or takes in the
/// character there. No further back than the stretch before.
std::size_t KeywordScan::reachBack(std::size_t index)
{
    std::size_t missing = m_keyword.size();
    while (missing != 0 && index > m_stretchEnd) {
        const bool isPlain = isPlainAt(index - 1);
        const auto &reading = m_readings.reading(takePrevious(m_text, index));
        if (isPlain && reading.weights.front() == 0)
            break;
        if (!reading.isDoubtful)
            missing -= std::min(missing, reading.weights.size());
    }
    while (index > m_stretchEnd && !isEdge(index))
        --index;
    return index;
}

/// Where it has to end for those that begin before @p index. No further than the next doubtful
/// character, which has a reach of its own.
std::size_t KeywordScan::reachForward(std::size_t index)
{
    std::size_t missing = m_keyword.size();
    while (missing != 0 && index < m_text.size()) {
        const bool isPlain = isPlainAt(index);
        std::size_t next = index;
        const auto &reading = m_readings.reading(takeNext(m_text, next));
        if (reading.isDoubtful)
            return index;
        index = next;
        if (isPlain && reading.weights.front() == 0)
            break;
        missing -= std::min(missing, reading.weights.size());
    }
    return edgeAfter(index);
}

std::size_t KeywordScan::edgeAfter(std::size_t index)
{
    while (!isEdge(index)) {
        std::size_t next = index;
        if (m_readings.reading(takeNext(m_text, next)).isDoubtful)
            break;
        index = next;
    }
    return index;
}

/// Takes a stretch down for ICU. Whether ICU finds the keyword in the one that was there before,
/// which is looked at when no more can come to it.
bool KeywordScan::isFoundBefore(std::size_t begin, std::size_t end)
{
    bool isFound = false;
    if (begin > m_stretchEnd + shortestGap) {
        isFound = isFoundInStretch();
        m_stretchBegin = begin;
    }
    m_stretchEnd = std::max(m_stretchEnd, end);
    return isFound;
}

bool KeywordScan::isFoundInStretch()
{
    if (m_stretchEnd == m_stretchBegin)
        return false;
    const auto stretch = m_text.substr(m_stretchBegin, m_stretchEnd - m_stretchBegin);
    return m_icu.isFoundIn(stretch).value_or(false);
}

} // namespace ostrel
