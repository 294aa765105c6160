#include "Utf8Stream.h"

#include <unicode/ustring.h>

#include <algorithm>

namespace ostrel {

namespace {

/// Judged by its first byte.
std::size_t lengthOfCharacter(unsigned char first)
{
    if (first >= 0xf0)
        return 4;
    if (first >= 0xe0)
        return 3;
    return first >= 0xc0 ? 2 : 1;
}

bool isTrailing(unsigned char byte)
{
    return (byte & 0xc0) == 0x80;
}

/// How many bytes at the end of @p bytes begin a character whose rest is missing.
std::size_t lengthOfBeginning(std::string_view bytes)
{
    const std::size_t longest = std::min<std::size_t>(bytes.size(), 3);
    for (std::size_t length = 1; length <= longest; ++length) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - length]);
        if (!isTrailing(byte))
            return lengthOfCharacter(byte) > length ? length : 0;
    }
    return 0;
}

} // namespace

std::optional<std::u16string_view> Utf8Stream::decode(QByteArrayView bytes)
{
    m_bytes.append(bytes.data(), static_cast<std::size_t>(bytes.size()));
    const std::size_t whole = m_bytes.size() - lengthOfBeginning(m_bytes);
    m_text.resize(whole); // No character has more UTF-16 units than bytes.
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(m_text.data(), static_cast<int32_t>(whole), &length, m_bytes.data(),
                  static_cast<int32_t>(whole), &status);
    if (U_FAILURE(status))
        return std::nullopt;
    m_bytes.erase(0, whole);
    m_text.resize(static_cast<std::size_t>(length));
    return m_text;
}

} // namespace ostrel
