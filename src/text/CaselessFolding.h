#pragma once

#include <unicode/unorm2.h>

#include <optional>
#include <string>
#include <string_view>

namespace ostrel {

/// Converts a text that arrives in chunks to a form in which two texts are equal if they are
/// canonical caseless matches: NFD(toCasefold(NFD(text))) (the Unicode Standard, section 3.13,
/// D145).
///
/// Case is folded by the rules of the user's language: in Turkish and Azerbaijani "I" is the
/// capital of "ı", and "İ" that of "i". Sequences of combining marks are cut as in the Stream-Safe
/// Text Format (UAX #15, section 13), so that neither time nor memory grows with their length.
///
/// A returned view is valid until the next call, and is nullopt if ICU fails. Every function may
/// throw std::bad_alloc.
class CaselessFolding
{
public:
    CaselessFolding();

    /// Starts another text.
    void begin();
    /// The next chunk, of whole characters. The output lags behind: marks are put in order only
    /// once the last of them has arrived.
    [[nodiscard]] std::optional<std::u16string_view> fold(std::u16string_view text);
    /// The rest of the text so far. The next chunk must begin with an ASCII character.
    [[nodiscard]] std::optional<std::u16string_view> flush();

    /// Whether folding an ASCII text only makes its letters small, whatever the context.
    [[nodiscard]] bool isSimpleForAscii() const { return !m_isTurkic; }

private:
    [[nodiscard]] bool isStarter(char32_t character) const;
    [[nodiscard]] std::size_t marksIn(char32_t character) const;
    void appendSafely(std::u16string_view text);
    [[nodiscard]] bool shallCutBefore(char32_t character);
    [[nodiscard]] std::size_t lastBoundary() const;
    [[nodiscard]] std::optional<std::u16string_view> foldBegun(std::size_t length);
    [[nodiscard]] bool decompose(std::u16string_view text, std::u16string &target) const;
    void joinDottedI();
    [[nodiscard]] std::size_t dotAbove(std::size_t capital) const;

    const bool m_isTurkic;
    UErrorCode m_status = U_ZERO_ERROR;
    const UNormalizer2 *m_decomposer;

    std::u16string m_begun;  ///< What hasn't been folded yet.
    char32_t m_starter = 0;  ///< The last one.
    std::size_t m_marks = 0; ///< Marks since the last starter, including its own.
    std::u16string m_decomposed;
    std::u16string m_caseless;
    std::u16string m_folded;
};

} // namespace ostrel
