#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

/// Looks for a row of folded characters in another that arrives in pieces, without ever going back
/// (Knuth, Morris and Pratt). A match counts if it ends where a combining sequence ends: not before
/// a mark, nor before a Hangul jamo that continues its syllable. An empty row is in every text.
class SequenceMatcher
{
public:
    explicit SequenceMatcher(std::u16string_view wanted);

    /// Begins another text.
    void begin();
    void take(std::u16string_view text);
    /// ASCII in capital or small letters, which are equal.
    void takeAscii(std::string_view text);
    /// The text ends here.
    void finish();

    [[nodiscard]] bool isFound() const { return m_isFound; }

private:
    void takeCharacter(char32_t character);
    [[nodiscard]] bool isContinuedBy(char32_t character) const;

    std::u32string m_wanted;
    /// For every number of characters that match, how many still do when the next one doesn't.
    std::vector<std::size_t> m_fallbacks;
    std::size_t m_matched = 0;
    bool m_isEndOpen = false; ///< A match has just ended, if what comes next doesn't continue it.
    bool m_isFound = false;
};

} // namespace ostrel
