#include "UuidText.h"

#include <cstdint>

namespace ostrel {

namespace {

constexpr std::size_t uuidBytes = 16;
constexpr std::uint8_t noDigit = 0x10; // a bit that no digit's value has

constexpr std::array<std::uint8_t, 256> hexDigitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(noDigit);
    for (std::uint8_t i = 0; i < 10; ++i)
        values[std::size_t('0') + i] = i;
    for (std::uint8_t i = 0; i < 6; ++i)
        values[std::size_t('a') + i] = values[std::size_t('A') + i] = std::uint8_t(10 + i);
    return values;
}();

/// The positions of each byte's two digits, without the hyphens.
constexpr std::array<std::uint8_t, uuidBytes> digitPositions = {0,  2,  4,  6,  9,  11, 14, 16,
                                                                19, 21, 24, 26, 28, 30, 32, 34};

bool hasHyphens(std::string_view text)
{
    return text[8] == '-' && text[13] == '-' && text[18] == '-' && text[23] == '-';
}

QUuid uuidFrom(quint64 high, quint64 low)
{
    const auto byte = [low](int index) { return static_cast<uchar>(low >> (56 - 8 * index)); };
    return QUuid(static_cast<uint>(high >> 32), static_cast<ushort>(high >> 16),
                 static_cast<ushort>(high), byte(0), byte(1), byte(2), byte(3), byte(4), byte(5),
                 byte(6), byte(7));
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

    unsigned bits = 0;
    const auto half = [&](std::size_t firstByte) {
        quint64 value = 0;
        for (std::size_t i = firstByte; i < firstByte + uuidBytes / 2; ++i) {
            const unsigned high = hexDigit(text[digitPositions[i]]);
            const unsigned low = hexDigit(text[digitPositions[i] + 1U]);
            bits |= high | low;
            value = value << 8 | high << 4 | low;
        }
        return value;
    };
    const QUuid id = uuidFrom(half(0), half(uuidBytes / 2));
    return (bits & noDigit) == 0 ? std::optional(id) : std::nullopt;
}

} // namespace ostrel
