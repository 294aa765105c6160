#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Tries one input; ends the program if a promise is broken. The name is libFuzzer's, so that its
/// driver can be linked instead of ours.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace ostrel::fuzz {

/// Texts with a meaning for the target, which the mutator inserts into inputs.
[[nodiscard]] std::vector<std::string_view> dictionary();

} // namespace ostrel::fuzz
