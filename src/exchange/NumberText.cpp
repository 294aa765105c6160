#include "NumberText.h"

#include <array>
#include <charconv>

namespace ostrel {

QByteArray numberText(double number)
{
    std::array<char, 32> text; // room for every double in its shortest form
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end - text.data()};
}

} // namespace ostrel
