#include "NumberText.h"

#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel::test {

TEST(NumberTextTest, HasTheShortestForm)
{
    EXPECT_EQ(numberText(0.45), QByteArray("0.45"));
    EXPECT_EQ(numberText(1296000), QByteArray("1296000"));
    EXPECT_EQ(numberText(-1), QByteArray("-1"));
    EXPECT_EQ(numberText(0.1 + 0.2), QByteArray("0.30000000000000004"));
}

} // namespace ostrel::test
