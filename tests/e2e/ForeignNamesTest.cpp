#include "CheckJson.h"
#include "ExpectedMonitor.h"
#include "ForeignTexts.h"
#include "OneLine.h"
#include "OstrelDesktop.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// The foreign texts that a file can hold.
QList<ForeignText> storableTexts()
{
    QList<ForeignText> texts = foreignTexts();
    texts.removeIf([](const ForeignText &each) { return !each.text.isValidUtf16(); });
    return texts;
}

/// The program with monitors that have the foreign texts as their names and failure reasons.
class ForeignNamesTest : public testing::Test
{
protected:
    ForeignNamesTest()
    {
        std::string histories;
        for (const ForeignText &foreign : storableTexts()) {
            Monitor monitor = portMonitor(foreign.text, u"127.0.0.1"_s, 1);
            monitor.interval = monitor.timeout = Seconds(3600);
            monitor.isEnabled = false;
            monitors.append(monitor);
            histories += histories.empty() ? "[" : ",";
            histories += historyOf(monitor);
        }
        desktop.program.writeMonitors(monitors);
        QFile file(desktop.program.dataDir() + u"/checks.json"_s);
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray::fromStdString(histories + ']'));
    }

    /// Waits until a screen reader finds an item of @p role whose name ends with @p ending.
    [[nodiscard]] bool waitForEnding(AccessibleRole role, const QString &ending)
    {
        return waitFor([&] {
            return std::ranges::any_of(desktop.items(), [&](const AccessibleItem &item) {
                return item.role == role && item.name.endsWith(ending);
            });
        });
    }

    /// Expects everything that a screen reader now finds in the window to be fit for people.
    void expectFit(const std::string &where)
    {
        for (const AccessibleItem &item : desktop.items()) {
            EXPECT_TRUE(isFitForPeople(item.name)) << where;
            EXPECT_TRUE(isFitForPeople(item.description)) << where;
        }
    }

    QList<Monitor> monitors;
    OstrelDesktop desktop;

private:
    static std::string historyOf(const Monitor &monitor)
    {
        Check check;
        check.id = QUuid::createUuid();
        check.monitorId = monitor.id;
        check.timestamp = systemNow();
        check.error = monitor.name;
        std::string json = '"' + monitor.id.toString(QUuid::WithoutBraces).toStdString() + "\",[";
        appendCheck(json, check);
        return json + ']';
    }
};

} // namespace

TEST_F(ForeignNamesTest, EveryPageIsFitForPeopleAndAppearsAtOnce)
{
    ASSERT_TRUE(desktop.start());
    expectFit("the dashboard");
    for (const Monitor &monitor : monitors) {
        const std::string which = monitor.name.left(20).toStdString();
        ASSERT_TRUE(desktop.user.press("Down")) << which;
        ASSERT_TRUE(waitForEnding(AccessibleRole::heading, oneLine(monitor.name))) << which;
        ASSERT_TRUE(desktop.user.press("Next")) << which;
        ASSERT_TRUE(waitForEnding(AccessibleRole::listItem, oneLine(monitor.name))) << which;
        expectFit(which);
    }
    EXPECT_EQ(desktop.program.stop(), 0);
}

} // namespace ostrel::test
