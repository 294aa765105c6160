#pragma once

#include <QUuid>

#include <array>
#include <optional>
#include <string_view>

namespace ostrel {

/// The number of characters of a UUID's stored form.
inline constexpr std::size_t uuidTextLength = 36;

/// The stored form of a UUID: canonical 8-4-4-4-12 hexadecimal form, upper case, no braces.
[[nodiscard]] std::array<char, uuidTextLength> formatUuid(const QUuid &id);

/// Parses the canonical form of a UUID, in either case. Nullopt for every other form.
[[nodiscard]] std::optional<QUuid> parseUuid(std::string_view text);

} // namespace ostrel
