#pragma once

#include "IcuHandles.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace ostrel {

/// How a collation reads characters in the search for one keyword: as a row of weights, where equal
/// weights are equal to the user. A character is looked at when it is first met. One thread.
class KeywordReadings
{
public:
    /// A weight, by the order in which the keyword first shows it; 0 is any that it doesn't have.
    using Weight = std::uint16_t;
    /// The weight of a plain character, or that it's another.
    using Code = std::uint16_t;

    struct Reading
    {
        /// Beside other characters it may weigh something else.
        bool isDoubtful = false;
        std::vector<Weight> weights;
    };

    /// @p collator outlives the readings.
    KeywordReadings(const UCollator *collator, std::u16string_view keyword);

    /// Whether the collation can be told in readings, and the keyword weighs anything.
    [[nodiscard]] bool areUsable() const { return m_areUsable; }
    [[nodiscard]] const std::vector<Weight> &keyword() const { return m_keyword; }

    /// A plain character has one weight, everywhere, and what stands beside it is none of its own
    /// affair: neither does it make a letter with it, nor a cluster.
    [[nodiscard]] static bool isPlain(Code code) { return code <= lastPlain; }
    [[nodiscard]] Code codeAt(std::u16string_view text, std::size_t index)
    {
        const Code code = m_codes[text[index]];
        return code == unread ? readUnit(text[index]) : code;
    }
    [[nodiscard]] bool isPlainAt(std::u16string_view text, std::size_t index)
    {
        return isPlain(codeAt(text, index));
    }
    [[nodiscard]] const Reading &reading(char32_t character);

private:
    using Elements = std::vector<std::int32_t>;

    static constexpr Code lastPlain = 0x7fff;
    static constexpr Code other = 0xfffe;
    static constexpr Code unread = 0xffff;

    [[nodiscard]] Elements elements(std::u16string_view text) const;
    [[nodiscard]] Weight weight(std::int32_t element) const;
    [[nodiscard]] bool touchesKeyword(const Elements &elements) const;
    void readKeyword(std::u16string_view keyword);
    void readContractions();
    void readContraction(std::u16string_view contraction);

    Code readUnit(char16_t unit);
    [[nodiscard]] Reading read(char32_t character) const;
    [[nodiscard]] bool isDoubtful(char32_t character, const Elements &elements) const;
    [[nodiscard]] bool isLonely(char32_t character) const;

    const UCollator *m_collator;
    IcuElements m_elements;
    bool m_areUsable = false;
    std::unordered_map<std::int32_t, Weight> m_weights;
    std::vector<Weight> m_keyword;
    std::unordered_set<char32_t> m_contracted;
    std::unordered_set<char32_t> m_doubtfulTrailers;
    std::vector<Code> m_codes;
    std::unordered_map<char32_t, Reading> m_readings;
};

} // namespace ostrel
