#include "FailedSearches.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class FailedSearchesTest : public testing::Test
{
protected:
    std::chrono::steady_clock::time_point now{};
    FailedSearches failed{[this] { return now; }};
    const QString domain = u"example.org"_s;
};

} // namespace

TEST_F(FailedSearchesTest, AFailureCountsForTenMinutes)
{
    EXPECT_FALSE(failed.contains(domain));
    failed.add(domain);
    EXPECT_TRUE(failed.contains(domain));
    EXPECT_FALSE(failed.contains(u"example.net"_s));
    now += 10min - 1ns;
    EXPECT_TRUE(failed.contains(domain));
    now += 1ns;
    EXPECT_FALSE(failed.contains(domain));
}

TEST_F(FailedSearchesTest, TheLatestFailureCounts)
{
    failed.add(domain);
    now += 10min;
    failed.add(domain);
    now += 9min;
    EXPECT_TRUE(failed.contains(domain));
}

TEST_F(FailedSearchesTest, MemoryIsBoundedAndTheOldestGoFirst)
{
    const auto nthDomain = [](int i) { return u"%1.example.org"_s.arg(i); };
    constexpr int many = 100'000;
    for (int i = 0; i < many; ++i)
        failed.add(nthDomain(i));
    int remembered = 0;
    for (int i = 0; i < many; ++i)
        remembered += failed.contains(nthDomain(i)) ? 1 : 0;
    EXPECT_GT(remembered, 1000);
    EXPECT_LT(remembered, 5000);
    EXPECT_TRUE(failed.contains(nthDomain(many - 1)));
    EXPECT_FALSE(failed.contains(nthDomain(0)));
}

TEST_F(FailedSearchesTest, ALongDomainTakesMoreOfIt)
{
    failed.add(domain);
    failed.add(QString(FailedSearches::memoryLimit, u'a'));
    EXPECT_FALSE(failed.contains(QString(FailedSearches::memoryLimit, u'a')));
    EXPECT_TRUE(failed.contains(domain));
    for (int i = 0; i < 10; ++i)
        failed.add(QString(FailedSearches::memoryLimit / 8, QChar(u'a' + i)));
    EXPECT_FALSE(failed.contains(domain));
}

} // namespace ostrel::test
