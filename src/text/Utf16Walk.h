#pragma once

#include <QChar>

#include <cstddef>
#include <string_view>

namespace ostrel {

/// Returns the character at @p index and advances to the next; a lone surrogate counts as one.
inline char32_t takeNext(std::u16string_view text, std::size_t &index)
{
    const char16_t unit = text[index++];
    if (QChar::isHighSurrogate(unit) && index < text.size() && QChar::isLowSurrogate(text[index]))
        return QChar::surrogateToUcs4(unit, text[index++]);
    return unit;
}

/// Returns the character before @p index and goes back to it; a lone surrogate counts as one.
inline char32_t takePrevious(std::u16string_view text, std::size_t &index)
{
    const char16_t unit = text[--index];
    if (QChar::isLowSurrogate(unit) && index > 0 && QChar::isHighSurrogate(text[index - 1]))
        return QChar::surrogateToUcs4(text[--index], unit);
    return unit;
}

} // namespace ostrel
