#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ostrel::bench {

/// A check as the simplest program would hold it.
struct PlainCheck
{
    std::array<std::uint8_t, 16> id;
    std::array<std::uint8_t, 16> monitorId;
    std::int64_t timestamp = 0; ///< Seconds since 1970.
    std::int64_t statusCode = 0;
    double responseTime = 0;
    bool isUp = false;
    std::optional<std::string> error;
    std::int64_t sslExpiresAt = 0;
};

struct PlainHistory
{
    std::array<std::uint8_t, 16> monitorId;
    std::vector<PlainCheck> checks;
};

/// The minimum work of loading the file: simdjson, each key looked for where it is expected, no
/// handling of anything that Ostrel does not write. Empty if even that fails.
[[nodiscard]] std::vector<PlainHistory> loadBare(const std::string &path);

} // namespace ostrel::bench
