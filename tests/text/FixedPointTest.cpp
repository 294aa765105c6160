#include "FixedPoint.h"

#include "Printers.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace ostrel {
namespace {

TEST(FixedPointTest, WritesNumbersAsPrintfDoes)
{
    for (const double number : {0.0, 0.4, 0.5, 1.5, 2.5, 500.5, 501.5, 1234.56, -0.4, -2.5, 99.95,
                                0.05, 1e15 + 0.5, std::numeric_limits<double>::max(),
                                std::numeric_limits<double>::infinity(), std::nan("")}) {
        for (const int decimals : {0, 1, 2}) {
            std::array<char, 400> expected;
            std::snprintf(expected.data(), expected.size(), "%.*f", decimals, number);
            EXPECT_EQ(fixedPoint(number, decimals), QString::fromLatin1(expected.data()));
        }
    }
}

} // namespace
} // namespace ostrel
