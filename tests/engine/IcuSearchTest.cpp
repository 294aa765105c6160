#include "IcuSearch.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

std::u16string accents(std::size_t count)
{
    return std::u16string(count, u'\u0301');
}

} // namespace

TEST(StreamSafeTest, LeavesUpToThirtyAccentsAsTheyAre)
{
    EXPECT_FALSE(streamSafe(u""));
    EXPECT_FALSE(streamSafe(u"plain"));
    EXPECT_FALSE(streamSafe(u"e" + accents(30) + u"e" + accents(30)));
}

TEST(StreamSafeTest, JoinsLongerRows)
{
    EXPECT_EQ(streamSafe(accents(31)), accents(30) + u'\u034f' + accents(1));
    EXPECT_EQ(streamSafe(u"e" + accents(61) + u"e"),
              u"e" + accents(30) + u'\u034f' + accents(30) + u'\u034f' + accents(1) + u"e");
}

TEST(StreamSafeTest, CountsVowelSignsThatAreMadeOfAccents)
{
    EXPECT_TRUE(streamSafe(std::u16string(31, u'\u0f73')));
}

} // namespace ostrel::test
