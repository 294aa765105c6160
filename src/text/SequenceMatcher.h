#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

/// Searches for a sequence of folded characters in a text that arrives in chunks, without ever
/// going back (Knuth, Morris and Pratt). A match counts if it ends where a combining sequence ends:
/// not before a mark, nor before a Hangul jamo that continues its syllable. Every text contains an
/// empty sequence.
class SequenceMatcher
{
public:
    explicit SequenceMatcher(std::u16string_view wanted);

    /// Starts another text.
    void begin();
    void take(std::u16string_view text);
    /// ASCII in capital or small letters, which are equal.
    void takeAscii(std::string_view text);
    /// Ends the text.
    void finish();

    [[nodiscard]] bool isFound() const { return m_isFound; }

private:
    void takeCharacter(char32_t character);
    [[nodiscard]] bool isContinuedBy(char32_t character) const;

    std::u32string m_wanted;
    /// For every number of matched characters, how many still match if the next one doesn't.
    std::vector<std::size_t> m_fallbacks;
    std::size_t m_matched = 0;
    bool m_isEndOpen = false; ///< A match has just ended, unless the next character continues it.
    bool m_isFound = false;
};

} // namespace ostrel
