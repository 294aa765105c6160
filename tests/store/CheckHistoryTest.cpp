#include "CheckHistory.h"

#include "CheckJson.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel {
namespace {

const QUuid monitorId(u"{fedcba98-7654-3210-fedc-ba9876543210}"_s);
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

/// The text of @p checks as a file would hold it.
std::string textOf(std::span<const Check> checks)
{
    std::string text;
    for (const Check &check : checks) {
        text += text.empty() ? "" : ",";
        appendCheck(text, check);
    }
    return text;
}

/// A stand-in for the file in which a history is saved.
class CheckHistoryTest : public testing::Test
{
protected:
    /// Does what a save does: the file gets the stored text of @p history, and what is new.
    void save(CheckHistory &history)
    {
        const TextRange stored = history.storedText();
        std::string text(m_file.substr(stored.offset, stored.length));
        std::vector<quint32> lengths;
        for (const Check &check : history.unstoredChecks()) {
            text += text.empty() ? "" : ",";
            const std::size_t before = text.size();
            appendCheck(text, check);
            lengths.push_back(static_cast<quint32>(text.size() - before));
        }
        // At a different position each time.
        ++m_offset;
        m_file = std::string(m_offset, '#') + text + "###";
        history.setStored(m_offset, lengths);
    }
    [[nodiscard]] std::string storedText(const CheckHistory &history) const
    {
        return m_file.substr(history.storedText().offset, history.storedText().length);
    }

    std::string m_file;
    std::size_t m_offset = 10;
};

TEST_F(CheckHistoryTest, EmptyHistoryHasNoStoredText)
{
    const CheckHistory history(monitorId);
    EXPECT_EQ(history.opening(), opening);
    EXPECT_EQ(history.storedText().length, 0U);
    EXPECT_TRUE(history.checks().empty());
    EXPECT_TRUE(history.unstoredChecks().empty());
}

TEST_F(CheckHistoryTest, StoredFormFollowsTheChecksThroughEveryTrim)
{
    CheckHistory history(monitorId);
    for (int i = 0; i < 700; ++i) {
        history.append(numberedCheck(i));
        history.keepNewest(200);
        ASSERT_EQ(history.checks().size(), std::size_t(std::min(i + 1, 200)));
        ASSERT_EQ(history.checks().front(), numberedCheck(std::max(0, i - 199)));
        ASSERT_EQ(history.checks().back(), numberedCheck(i));
        // Not after every check: a save can fail.
        if (i % 7 < 3) {
            save(history);
            ASSERT_EQ(storedText(history), textOf(history.checks())) << i;
            ASSERT_TRUE(history.unstoredChecks().empty());
        } else {
            const auto unstored = static_cast<std::size_t>(i % 7 - 2);
            ASSERT_EQ(history.unstoredChecks().size(), unstored) << i;
            ASSERT_EQ(storedText(history),
                      textOf(history.checks().first(history.checks().size() - unstored)))
                << i;
        }
    }
}

TEST_F(CheckHistoryTest, HistoryWhoseStoredChecksAreAllDroppedIsStoredAnew)
{
    CheckHistory history(monitorId);
    history.append(numberedCheck(1));
    history.append(numberedCheck(2));
    save(history);
    history.append(numberedCheck(3));
    history.keepNewest(1);
    EXPECT_EQ(history.storedText().length, 0U);
    EXPECT_EQ(history.unstoredChecks().size(), 1U);
    save(history);
    EXPECT_EQ(storedText(history), textOf(history.checks()));
    history.keepNewest(0);
    EXPECT_EQ(history.storedText().length, 0U);
    EXPECT_TRUE(history.unstoredChecks().empty());
    history.append(numberedCheck(4));
    save(history);
    EXPECT_EQ(storedText(history), textOf(history.checks()));
}

TEST_F(CheckHistoryTest, LongHistoryIsTrimmedAtOnce)
{
    CheckHistory history(monitorId);
    for (int i = 0; i < 5000; ++i)
        history.append(numberedCheck(i));
    save(history);
    history.keepNewest(2000);
    EXPECT_EQ(history.checks().size(), 2000U);
    EXPECT_EQ(history.checks().front(), numberedCheck(3000));
    EXPECT_EQ(storedText(history), textOf(history.checks()));
}

TEST_F(CheckHistoryTest, HistoryIsStoredAnewAfterForgettingItsStoredText)
{
    CheckHistory history(monitorId);
    history.append(numberedCheck(1));
    save(history);
    history.append(numberedCheck(2));
    history.forgetStored();
    EXPECT_EQ(history.unstoredChecks().size(), 2U);
    save(history);
    EXPECT_EQ(storedText(history), textOf(history.checks()));
}

TEST_F(CheckHistoryTest, LoadedChecksCountAsStoredWhileTheirTextIsContiguous)
{
    const std::string one = textOf(std::vector{numberedCheck(1)});
    const std::string two = textOf(std::vector{numberedCheck(2)});
    const std::string three = textOf(std::vector{numberedCheck(3)});
    m_file = "[...[" + one + "," + two + ", " + three + "]]";
    const auto rangeOf = [this](const std::string &text) {
        return TextRange{m_file.find(text), text.size()};
    };
    CheckHistory history(monitorId);
    history.append(numberedCheck(1), rangeOf(one));
    history.append(numberedCheck(2), rangeOf(two));
    EXPECT_EQ(storedText(history), one + "," + two);
    EXPECT_TRUE(history.unstoredChecks().empty());
    history.append(numberedCheck(3), rangeOf(three));
    EXPECT_EQ(storedText(history), one + "," + two);
    EXPECT_EQ(history.unstoredChecks().size(), 1U) << "there is a blank before it";

    CheckHistory other(monitorId);
    other.append(numberedCheck(1));
    other.append(numberedCheck(2), rangeOf(two));
    EXPECT_EQ(other.storedText().length, 0U);
    EXPECT_EQ(other.unstoredChecks().size(), 2U) << "the first is nowhere";
}

} // namespace
} // namespace ostrel
