#include "FixedPoint.h"

#include <array>
#include <charconv>

namespace ostrel {

QString fixedPoint(double number, int decimals)
{
    std::array<char, 400> text; // room for the 309 digits of the largest double
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::fixed, decimals);
    return QString::fromLatin1(text.data(), end.ptr - text.data());
}

} // namespace ostrel
