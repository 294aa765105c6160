#pragma once

#include <QChar>

#include <cstddef>
#include <string_view>

namespace ostrel {

/// The character at @p index, which goes on to the next; a lone surrogate is one as well.
inline char32_t takeNext(std::u16string_view text, std::size_t &index)
{
    const char16_t unit = text[index++];
    if (QChar::isHighSurrogate(unit) && index < text.size() && QChar::isLowSurrogate(text[index]))
        return QChar::surrogateToUcs4(unit, text[index++]);
    return unit;
}

/// The character before @p index, which goes back to it.
inline char32_t takePrevious(std::u16string_view text, std::size_t &index)
{
    const char16_t unit = text[--index];
    if (QChar::isLowSurrogate(unit) && index > 0 && QChar::isHighSurrogate(text[index - 1]))
        return QChar::surrogateToUcs4(text[--index], unit);
    return unit;
}

} // namespace ostrel
