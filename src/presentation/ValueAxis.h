#pragma once

namespace ostrel {

/// A scale from 0 in round steps.
struct ValueAxis
{
    double step; ///< 1, 2 or 5 times a power of ten; never below 1.
    int steps;   ///< From 0 to the end of the scale; there is one more label.

    [[nodiscard]] double end() const { return step * steps; }
    bool operator==(const ValueAxis &) const = default;
};

/// Larger values are plotted as this one; far beyond every response time.
inline constexpr double maxPlottedValue = 1e12;

/// The scale for values from 0 to @p maximum, at most maxPlottedValue. It ends at the next step
/// above the maximum; of the possible steps, the one whose number of labels is closest to 4 is
/// used, the smaller step on a tie.
[[nodiscard]] ValueAxis valueAxis(double maximum);

} // namespace ostrel
