#include "UuidText.h"

#include <QByteArrayView>

#include <algorithm>
#include <cstdint>

namespace ostrel {

namespace {

constexpr std::size_t uuidBytes = 16;
constexpr std::uint8_t noDigit = 0xff;

constexpr std::array<std::uint8_t, 256> hexDigitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(noDigit);
    for (std::uint8_t i = 0; i < 10; ++i)
        values[std::size_t('0') + i] = i;
    for (std::uint8_t i = 0; i < 6; ++i)
        values[std::size_t('a') + i] = values[std::size_t('A') + i] = std::uint8_t(10 + i);
    return values;
}();

/// Where the two digits of each byte stand, past the hyphens.
constexpr std::array<std::uint8_t, uuidBytes> digitPositions = {0,  2,  4,  6,  9,  11, 14, 16,
                                                                19, 21, 24, 26, 28, 30, 32, 34};

bool hasHyphens(std::string_view text)
{
    return text[8] == '-' && text[13] == '-' && text[18] == '-' && text[23] == '-';
}

std::uint8_t hexDigit(char character)
{
    return hexDigitValues[static_cast<unsigned char>(character)];
}

} // namespace

std::array<char, uuidTextLength> formatUuid(const QUuid &id)
{
    static constexpr std::string_view digits = "0123456789ABCDEF";
    const auto bytes = id.toRfc4122();

    std::array<char, uuidTextLength> text{};
    text.fill('-');
    for (std::size_t i = 0; i < uuidBytes; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[qsizetype(i)]);
        text[digitPositions[i]] = digits[byte >> 4];
        text[digitPositions[i] + 1U] = digits[byte & 0x0f];
    }
    return text;
}

std::optional<QUuid> parseUuid(std::string_view text)
{
    if (text.size() != uuidTextLength || !hasHyphens(text))
        return std::nullopt;

    std::array<std::uint8_t, uuidBytes> bytes{};
    std::uint8_t highest = 0;
    for (std::size_t i = 0; i < uuidBytes; ++i) {
        const std::uint8_t high = hexDigit(text[digitPositions[i]]);
        const std::uint8_t low = hexDigit(text[digitPositions[i] + 1U]);
        highest = std::max({highest, high, low});
        bytes[i] = static_cast<std::uint8_t>(high << 4 | low);
    }
    if (highest == noDigit)
        return std::nullopt;
    return QUuid::fromRfc4122(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
}

} // namespace ostrel
