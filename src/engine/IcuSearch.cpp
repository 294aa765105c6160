#include "IcuSearch.h"

#include "Utf16Walk.h"

#include <unicode/unorm2.h>

namespace ostrel {

namespace {

constexpr std::size_t longestAccentRow = 30;
constexpr char16_t graphemeJoiner = 0x034f;

/// Counts the accents since the last letter.
class AccentRow
{
public:
    /// Whether @p character is one too many; it's the first of another row then.
    bool isFullFor(char32_t character)
    {
        const bool isAccent =
            character >= firstAccent && !unorm2_hasBoundaryBefore(m_decomposer, UChar32(character));
        const bool isFull = isAccent && m_length == longestAccentRow;
        m_length = isAccent && !isFull ? m_length + 1 : std::size_t(isFull);
        return isFull;
    }

private:
    static constexpr char32_t firstAccent = 0x0300;

    UErrorCode m_status = U_ZERO_ERROR;
    const UNormalizer2 *m_decomposer = unorm2_getNFDInstance(&m_status);
    std::size_t m_length = 0;
};

} // namespace

IcuSearch::IcuSearch(const UCollator *collator, std::u16string_view keyword)
{
    UErrorCode status = U_ZERO_ERROR;
    m_search.reset(usearch_openFromCollator(keyword.data(), int32_t(keyword.size()), u" ", 1,
                                            collator, nullptr, &status));
}

std::optional<bool> IcuSearch::isFoundIn(std::u16string_view text)
{
    if (!m_search)
        return std::nullopt;
    const auto safe = streamSafe(text);
    const std::u16string_view searched = safe ? *safe : text;
    UErrorCode status = U_ZERO_ERROR;
    usearch_setText(m_search.get(), searched.data(), int32_t(searched.size()), &status);
    const int32_t position = usearch_first(m_search.get(), &status);
    if (U_FAILURE(status))
        return std::nullopt;
    if (position == USEARCH_DONE)
        return false;
    return usearch_getMatchedLength(m_search.get()) > 0 ? std::optional(true) : std::nullopt;
}

std::optional<std::u16string> streamSafe(std::u16string_view text)
{
    std::optional<std::u16string> safe;
    AccentRow row;
    std::size_t copied = 0;
    for (std::size_t next = 0; next < text.size();) {
        const std::size_t index = next;
        if (!row.isFullFor(takeNext(text, next)))
            continue;
        if (!safe)
            safe.emplace();
        safe->append(text.substr(copied, index - copied)) += graphemeJoiner;
        copied = index;
    }
    if (safe)
        safe->append(text.substr(copied));
    return safe;
}

} // namespace ostrel
