#include "CheckHistory.h"

#include "CheckJson.h"
#include "Printers.h"

#include <gtest/gtest.h>

namespace ostrel {
namespace {

const QUuid monitorId(QStringLiteral("{fedcba98-7654-3210-fedc-ba9876543210}"));
const std::string opening = "\"FEDCBA98-7654-3210-FEDC-BA9876543210\",[";

Check numberedCheck(int number)
{
    Check check;
    check.id = QUuid(uint(number), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    check.monitorId = monitorId;
    check.timestamp += std::chrono::seconds(number);
    check.responseTime = number / 7.0;
    if (number % 5 == 0)
        check.error = QString(number % 300, u'x');
    return check;
}

std::string storedForm(const CheckHistory &history)
{
    std::vector<std::string_view> pieces;
    history.appendStoredForm(pieces);
    std::string text;
    for (const std::string_view piece : pieces)
        text += piece;
    return text;
}

std::string expectedForm(std::span<const Check> checks)
{
    std::string text = opening;
    for (const Check &check : checks) {
        if (text.size() > opening.size())
            text += ',';
        appendCheck(text, check);
    }
    return text + "]";
}

TEST(CheckHistoryTest, EmptyHistoryIsAnEmptyArray)
{
    EXPECT_EQ(storedForm(CheckHistory(monitorId)), opening + "]");
}

TEST(CheckHistoryTest, StoredFormFollowsTheChecksThroughEveryTrim)
{
    CheckHistory history(monitorId);
    for (int i = 0; i < 700; ++i) {
        history.append(numberedCheck(i));
        history.keepNewest(200);
        ASSERT_EQ(history.checks().size(), std::size_t(std::min(i + 1, 200)));
        ASSERT_EQ(history.checks().front(), numberedCheck(std::max(0, i - 199)));
        ASSERT_EQ(history.checks().back(), numberedCheck(i));
        ASSERT_EQ(storedForm(history), expectedForm(history.checks())) << i;
    }
}

TEST(CheckHistoryTest, TextLargerThanAChunkIsKeptWhole)
{
    CheckHistory history(monitorId);
    Check large = numberedCheck(1);
    large.error = QString(20000, u'y');
    history.append(large);
    history.append(numberedCheck(2));
    EXPECT_EQ(storedForm(history), expectedForm(history.checks()));
    history.keepNewest(1);
    EXPECT_EQ(storedForm(history), expectedForm(history.checks()));
    history.keepNewest(0);
    EXPECT_EQ(storedForm(history), opening + "]");
}

TEST(CheckHistoryTest, LongHistoryIsCutAtOnce)
{
    CheckHistory history(monitorId);
    for (int i = 0; i < 5000; ++i)
        history.append(numberedCheck(i));
    history.keepNewest(2000);
    EXPECT_EQ(history.checks().size(), 2000U);
    EXPECT_EQ(history.checks().front(), numberedCheck(3000));
    EXPECT_EQ(storedForm(history), expectedForm(history.checks()));
}

TEST(CheckHistoryTest, GivenTextIsKeptAsItIs)
{
    CheckHistory history(monitorId);
    history.append(numberedCheck(1), "{}");
    EXPECT_EQ(storedForm(history), opening + "{}]");
}

} // namespace
} // namespace ostrel
