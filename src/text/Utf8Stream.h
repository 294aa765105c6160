#pragma once

#include <QByteArrayView>

#include <optional>
#include <string>
#include <string_view>

namespace ostrel {

/// Decodes UTF-8 that arrives in pieces of any size, and takes nothing else for it: no overlong
/// form, no surrogate, nothing over U+10FFFF.
class Utf8Stream
{
public:
    /// The whole characters that came with @p bytes, until the next call; nothing if these can't be
    /// UTF-8, or ICU fails. May throw std::bad_alloc.
    [[nodiscard]] std::optional<std::u16string_view> decode(QByteArrayView bytes);

    /// Whether the last piece ended with a character. If it's the end of the text, it must have.
    [[nodiscard]] bool isBetweenCharacters() const { return m_bytes.empty(); }

private:
    std::string m_bytes; ///< Between two calls, the beginning of a character.
    std::u16string m_text;
};

} // namespace ostrel
