#include "TransferTimeout.h"

#include <algorithm>

namespace ostrel {

std::chrono::milliseconds transferTimeout(Seconds timeout)
{
    constexpr Seconds longest = std::chrono::hours(24 * 366);
    return std::chrono::ceil<std::chrono::milliseconds>(std::clamp(timeout, Seconds(0), longest));
}

} // namespace ostrel
