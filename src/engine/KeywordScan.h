#pragma once

#include "IcuSearch.h"
#include "KeywordReadings.h"

#include <optional>
#include <string_view>
#include <vector>

namespace ostrel {

/// Looks for one keyword in texts: by itself where the characters are plain, which most are, and
/// with ICU, which takes many times as long for each, where they aren't. Finds what ICU would find
/// in the whole text. One thread.
class KeywordScan
{
public:
    /// Both outlive the scan.
    KeywordScan(const UCollator *collator, std::u16string_view keyword);

    /// Whether @p text holds the keyword; nothing where only ICU can tell.
    [[nodiscard]] std::optional<bool> isFoundIn(std::u16string_view text);

private:
    using Weight = KeywordReadings::Weight;

    void makeFallbacks();
    [[nodiscard]] bool findInText();
    void passPlain();
    [[nodiscard]] bool isFoundPassingOther();
    [[nodiscard]] bool isFoundHere();
    [[nodiscard]] bool isCertain();
    void match(Weight weight);

    [[nodiscard]] bool isPlainAt(std::size_t index) { return m_readings.isPlainAt(m_text, index); }
    [[nodiscard]] bool isEdge(std::size_t index);
    [[nodiscard]] std::size_t reachBack(std::size_t index);
    [[nodiscard]] std::size_t reachForward(std::size_t index);
    [[nodiscard]] std::size_t edgeAfter(std::size_t index);
    [[nodiscard]] bool isFoundBefore(std::size_t begin, std::size_t end);
    [[nodiscard]] bool isFoundInStretch();

    IcuSearch m_icu;
    KeywordReadings m_readings;
    const std::vector<Weight> &m_keyword;
    /// For every number of weights that match, how many still do when the next one doesn't.
    std::vector<std::size_t> m_fallbacks;
    std::u16string_view m_text;
    std::size_t m_position = 0;
    std::size_t m_matched = 0;
    /// The last stretch of the text that ICU has to look at, and hasn't yet.
    std::size_t m_stretchBegin = 0;
    std::size_t m_stretchEnd = 0;
};

} // namespace ostrel
