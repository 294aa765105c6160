#pragma once

#include <QByteArrayView>

#include <optional>
#include <string>
#include <string_view>

namespace ostrel {

/// Decodes UTF-8 that arrives in chunks of any size. Strict: rejects overlong forms, surrogates and
/// anything above U+10FFFF.
class Utf8Stream
{
public:
    /// The characters completed by @p bytes, valid until the next call; nullopt if the bytes can't
    /// be UTF-8, or ICU fails. May throw std::bad_alloc.
    [[nodiscard]] std::optional<std::u16string_view> decode(QByteArrayView bytes);

    /// Whether the last chunk ended at a character's end, as the last chunk of a valid text does.
    [[nodiscard]] bool isBetweenCharacters() const { return m_bytes.empty(); }

private:
    std::string m_bytes; ///< Between two calls, the beginning of an incomplete character.
    std::u16string m_text;
};

} // namespace ostrel
