#pragma once

#include "IcuHandles.h"

#include <optional>
#include <string>
#include <string_view>

namespace ostrel {

/// ICU's own search for one keyword, in time that grows with the text's length and no faster. One
/// thread.
class IcuSearch
{
public:
    /// Both outlive the search.
    IcuSearch(const UCollator *collator, std::u16string_view keyword);

    /// Whether @p text holds the keyword; nothing where ICU can't tell, which is so for a keyword
    /// that weighs nothing.
    [[nodiscard]] std::optional<bool> isFoundIn(std::u16string_view text);

private:
    IcuSearchHandle m_search;
};

/// @p text with a grapheme joiner, which weighs nothing, wherever more than thirty accents follow
/// each other: the Stream-Safe Text Format (UAX #15, section 13). Bringing accents into their order
/// takes time that grows with the square of their number. Nothing where there is none to put in.
[[nodiscard]] std::optional<std::u16string> streamSafe(std::u16string_view text);

} // namespace ostrel
