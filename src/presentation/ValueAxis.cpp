#include "ValueAxis.h"

#include <array>
#include <cmath>
#include <limits>

namespace ostrel {

namespace {

constexpr double wantedLabels = 4;
constexpr int maxExponent = 12; // of maxPlottedValue
constexpr std::array roundFactors = {1.0, 2.0, 5.0};

} // namespace

ValueAxis valueAxis(double maximum)
{
    double bestStep = 1;
    double bestSteps = 1;
    double bestMiss = std::numeric_limits<double>::infinity();
    double power = 1;
    for (int exponent = 0; exponent <= maxExponent; ++exponent, power *= 10) {
        for (const double factor : roundFactors) {
            const double steps = std::floor(maximum / (factor * power)) + 1;
            const double miss = std::abs(steps + 1 - wantedLabels);
            if (miss < bestMiss) {
                bestStep = factor * power;
                bestSteps = steps;
                bestMiss = miss;
            }
        }
    }
    return {.step = bestStep, .steps = static_cast<int>(bestSteps)};
}

} // namespace ostrel
