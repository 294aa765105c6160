#include "CheckJson.h"
#include "ExpectedMonitor.h"
#include "FocusListener.h"
#include "HostileBehaviours.h"
#include "OstrelDesktop.h"
#include "Printers.h"
#include "Text.h"
#include "WaitFor.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

/// Roles under which a screen reader finds nothing to say or to do.
constexpr AccessibleRole emptyRoles[] = {AccessibleRole::invalid, AccessibleRole::filler,
                                         AccessibleRole::unknown};

/// What has to be offered, once, for a role.
QStringList actionsOf(AccessibleRole role)
{
    switch (role) {
    case AccessibleRole::checkBox:
    case AccessibleRole::radioButton:
        return {text("Press"), text("Toggle")};
    case AccessibleRole::pushButton:
    case AccessibleRole::menuItem:
    case AccessibleRole::comboBox:
        return {text("Press")};
    case AccessibleRole::splitPane:
        return {text("Decrease"), text("Increase")};
    default:
        return {};
    }
}

void expectUsable(const AccessibleItem &item)
{
    const std::string told = item.describe().trimmed().toStdString();
    EXPECT_NE(item.name, QString()) << told;
    EXPECT_EQ(std::ranges::count(emptyRoles, item.role), 0) << told;
    for (const QString &action : actionsOf(item.role))
        EXPECT_TRUE(item.actions.contains(action)) << action.toStdString() << " of " << told;
    QStringList distinct = item.actions;
    distinct.removeDuplicates();
    EXPECT_EQ(distinct.size(), item.actions.size()) << told;
    EXPECT_FALSE(item.extents.isEmpty()) << told;
}

/// "role 'name'" of everything, and that it can be used.
QStringList spoken(const QList<AccessibleItem> &items)
{
    QStringList lines;
    for (const AccessibleItem &item : items) {
        if (item.role == AccessibleRole::application)
            continue;
        expectUsable(item);
        lines += item.node.roleName() + text(" '") + item.name + u'\'';
    }
    return lines;
}

bool matchesAll(const QStringList &lines, const QStringList &patterns)
{
    if (lines.size() != patterns.size())
        return false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QRegularExpression whole(QRegularExpression::anchoredPattern(patterns[i]));
        if (!whole.match(lines[i]).hasMatch())
            return false;
    }
    return true;
}

Check checkOf(const Monitor &monitor, std::chrono::minutes age, bool isUp)
{
    return {.id = QUuid::createUuid(),
            .monitorId = monitor.id,
            .timestamp = systemNow() - age,
            .statusCode = isUp ? 200 : 503,
            .isUp = isUp,
            .responseTime = 245,
            .error = isUp ? OptionalText() : OptionalText(text("HTTP 503"))};
}

QStringList header(const QString &name, const QString &address)
{
    return {text("heading '%1'").arg(name), text("label '%1'").arg(address),
            text("push button 'Check now'"), text("push button 'Edit monitor'"),
            text("push button 'Get help'")};
}

class AccessibleTreeTest : public testing::Test
{
protected:
    AccessibleTreeTest()
    {
        for (Monitor &monitor : monitors)
            monitor.interval = monitor.timeout = Seconds(3600);
        monitors[0].keyword = text("OK");
        monitors[3].isEnabled = false;
    }

    void writeHistory(const std::vector<Check> &checks)
    {
        std::string json =
            "[\"" + monitors[0].id.toString(QUuid::WithoutBraces).toStdString() + "\",[";
        for (const Check &check : checks) {
            if (json.back() == '}')
                json += ',';
            appendCheck(json, check);
        }
        QFile file(desktop.program.dataDir() + text("/checks.json"));
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray::fromStdString(json + "]]"));
    }

    /// With a monitor in every state; nothing that is shown changes any more but the clock.
    void startWatching()
    {
        desktop.program.writeMonitors(monitors);
        writeHistory({checkOf(monitors[0], 120min, true), checkOf(monitors[0], 60min, false),
                      checkOf(monitors[0], 30min, true)});
        ASSERT_TRUE(desktop.start());
        ASSERT_TRUE(waitForLine(text("list item 'Database, down, .*")));
        ASSERT_TRUE(waitForLine(text("list item 'Shop, up, .*")));
    }

    [[nodiscard]] bool waitForLine(const QString &pattern)
    {
        const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
        return waitFor([&] { return spoken(desktop.items()).indexOf(whole) >= 0; });
    }

    /// Waits until what is said is @p patterns, line by line.
    void expectSpoken(const QStringList &patterns)
    {
        QStringList lines;
        const bool isSpoken = waitFor(
            [&] {
                lines = spoken(desktop.items());
                return matchesAll(lines, patterns);
            },
            5s);
        EXPECT_TRUE(isSpoken) << "Said:\n"
                              << lines.join(u'\n').toStdString() << "\n\nExpected:\n"
                              << patterns.join(u'\n').toStdString();
    }

    [[nodiscard]] std::optional<AccessibleItem> item(AccessibleRole role, const QString &name)
    {
        return desktop.waitForItem(role, name);
    }
    [[nodiscard]] bool press(AccessibleRole role, const QString &name)
    {
        const auto found = item(role, name);
        return found && found->node.act(text("Press"));
    }
    [[nodiscard]] bool waitForState(AccessibleRole role, const QString &name, AccessibleState state)
    {
        return waitFor([&] {
            const auto found = itemNamed(desktop.items(), role, name);
            return found && found->has(state);
        });
    }
    [[nodiscard]] QString focusedName()
    {
        const auto focused = desktop.focusedItem();
        return focused ? focused->name : QString();
    }

    /// What is said of the sheet that is open.
    [[nodiscard]] QStringList sheet()
    {
        const QStringList lines = spoken(desktop.items());
        return lines.sliced(lines.indexOf(QRegularExpression(text("^dialog .*"))));
    }

    [[nodiscard]] static QStringList sidebar(const QStringList &rows)
    {
        return QStringList{text("frame 'Ostrel'"), text("list 'Monitors'"),
                           text("list item 'Ostrel'")} +
               rows +
               QStringList{text("push button 'Add Monitor'"), text("push button 'Settings'"),
                           text("splitter 'Sidebar width'")};
    }
    [[nodiscard]] static QStringList fourRows()
    {
        return {text("list item 'Shop, up, \\d+ ms, 24-hour uptime 75.0%'"),
                text("list item 'Database, down, 24-hour uptime 0.0%'"),
                text("list item 'Quiet, pending, 24-hour uptime 100%'"),
                text("list item 'Old Shop, paused, 24-hour uptime 100%'")};
    }

    HostileServer server{answerWith("OK")};
    HostileServer silent{staySilent};
    QList<Monitor> monitors = {
        webMonitor(text("Shop"), server.url()),
        portMonitor(text("Database"), text("127.0.0.1"), closedPort()),
        webMonitor(text("Quiet"), silent.url()),
        webMonitor(text("Old Shop"), server.url()),
    };
    OstrelDesktop desktop;
};

} // namespace

TEST_F(AccessibleTreeTest, TheEmptyDashboardInvites)
{
    ASSERT_TRUE(desktop.start());
    expectSpoken(sidebar({}) +
                 QStringList{text("label 'Start Monitoring'"),
                             text("label 'Add a URL to track uptime and response time'"),
                             text("push button 'Add Monitor'")});
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, TheDashboardTellsEveryMonitorAndThePagesAllThatTheyShow)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    const QStringList rows = sidebar(fourRows());
    QStringList cards = fourRows();
    cards.replaceInStrings(QRegularExpression(text("^list item")), text("push button"));
    expectSpoken(rows +
                 QStringList{text("list 'Dashboard'"), text("label 'Issues Detected'"),
                             text("label '1 of 4 monitors up'")} +
                 cards);

    ASSERT_TRUE(desktop.user.press("Down"));
    expectSpoken(rows + header(text("Shop"), text("127\\.0\\.0\\.1:\\d+")) +
                 QStringList{text("label 'UP'"), text("label 'Keyword OK'"),
                             text("label 'Last checked .+'"), text("label 'Avg Response, \\d+ ms'"),
                             text("label 'Uptime 24h, 75.0 %'"), text("label 'Uptime 7d, 75.0 %'"),
                             text("label 'Uptime 30d, 75.0 %'"), text("heading 'Uptime'"),
                             text("label '75.00%'"),
                             text("graphic 'Uptime 75.00%, checks: 4, failed: 1, oldest: 2h ago'"),
                             text("label '2h ago'"), text("label 'Now'"),
                             text("heading 'Response Time'"), text("label '\\d+ ms'"),
                             text("graphic 'Response Time: newest \\d+ ms, lowest \\d+ ms, "
                                  "highest 245 ms, average \\d+ ms'"),
                             text("heading 'Recent Checks'"), text("label '4 in 24h'")});

    // The newest checks stand below the window's edge.
    ASSERT_TRUE(desktop.user.press("Next"));
    const QString clock = text("\\d\\d:\\d\\d");
    EXPECT_TRUE(waitForLine(text("list 'Recent Checks'")));
    EXPECT_TRUE(waitForLine(text("list item '%1, up, 200, \\d+ ms'").arg(clock)));
    EXPECT_TRUE(waitForLine(text("list item '%1, down, 503, HTTP 503'").arg(clock)));

    ASSERT_TRUE(desktop.user.press("Down"));
    expectSpoken(rows + header(text("Database"), text("127\\.0\\.0\\.1")) +
                 QStringList{text("label 'DOWN'"), text("label 'Port \\d+'"),
                             text("label 'Last checked .+'"), text("label 'Avg Response, --'"),
                             text("label 'Uptime 24h, 0.0 %'"), text("label 'Uptime 7d, 0.0 %'"),
                             text("label 'Uptime 30d, 0.0 %'"), text("heading 'Uptime'"),
                             text("label '0.00%'"),
                             text("graphic 'Uptime 0.00%, checks: 1, failed: 1, oldest: .+'"),
                             text("label '.+ ago'"), text("label 'Now'"),
                             text("heading 'Response Time'"), text("label 'Waiting for data'"),
                             text("heading 'Recent Checks'"), text("label '1 in 24h'")});

    ASSERT_TRUE(desktop.user.press("Down"));
    expectSpoken(rows + header(text("Quiet"), text("127\\.0\\.0\\.1:\\d+")) +
                 QStringList{text("label 'PENDING'"), text("label 'Avg Response, --'"),
                             text("label 'Uptime 24h, 100 %'"), text("label 'Uptime 7d, 100 %'"),
                             text("label 'Uptime 30d, 100 %'"), text("heading 'Uptime'"),
                             text("graphic 'Uptime: No data'"), text("label 'Collecting data...'"),
                             text("label 'No data'"), text("label 'Now'"),
                             text("heading 'Response Time'"), text("label 'No checks yet'"),
                             text("heading 'Recent Checks'"), text("label '0 in 24h'")});
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, ARowSaysWhereItIsAndWhetherItIsMeant)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    ASSERT_TRUE(desktop.user.press("Down"));
    ASSERT_TRUE(waitFor([this] { return focusedName().startsWith(text("Shop, ")); }));
    const auto shop = *desktop.focusedItem();
    EXPECT_EQ(shop.role, AccessibleRole::listItem);
    EXPECT_TRUE(shop.has(AccessibleState::selected));
    EXPECT_EQ(shop.description, QString::fromLatin1(server.url()).section(u'/', 2, 2));

    // Given the keyboard by a tool, a row shows its page, and the arrows go on from there.
    const auto quiet = item(AccessibleRole::listItem, text("Quiet, pending, 24-hour uptime 100%"));
    ASSERT_TRUE(quiet && quiet->node.act(text("SetFocus")));
    EXPECT_TRUE(waitForLine(text("heading 'Quiet'")));
    ASSERT_TRUE(desktop.user.press("Up"));
    EXPECT_TRUE(waitForLine(text("heading 'Database'")));
    ASSERT_TRUE(shop.node.act(text("Press")));
    EXPECT_TRUE(waitForLine(text("heading 'Shop'")));

    const auto home = item(AccessibleRole::listItem, text("Ostrel"));
    ASSERT_TRUE(home && home->node.act(text("Press")));
    ASSERT_TRUE(waitForLine(text("list 'Dashboard'")));
    const auto card =
        item(AccessibleRole::pushButton, text("Old Shop, paused, 24-hour uptime 100%"));
    ASSERT_TRUE(card && card->node.act(text("SetFocus")));
    EXPECT_TRUE(waitFor([this] { return focusedName().startsWith(text("Old Shop")); }));
    ASSERT_TRUE(desktop.user.press("Return"));
    EXPECT_TRUE(waitForLine(text("heading 'Old Shop'")));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, WhereTheKeyboardGoesIsTold)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    FocusListener listener(desktop.accessibility.connection());
    const auto isTold = [&](const char *key, const QString &name) {
        listener.forget();
        return desktop.user.press(key) &&
               waitFor([&] { return listener.heard().filter(name).size() == 1; });
    };
    EXPECT_TRUE(isTold("Down", text("Shop, up")));
    EXPECT_TRUE(isTold("Down", text("Database, down")));
    ASSERT_TRUE(desktop.user.press("shift+F10"));
    ASSERT_TRUE(waitForLine(text("popup menu 'Database'")));
    EXPECT_TRUE(isTold("Down", text("Check Now")));
    EXPECT_TRUE(isTold("Down", text("Pause")));
    EXPECT_TRUE(isTold("Escape", text("Database, down")));
    EXPECT_TRUE(isTold("Escape", text("Ostrel")));
    EXPECT_TRUE(isTold("Tab", text("Add Monitor")));
    EXPECT_TRUE(isTold("Tab", text("Settings")));
    EXPECT_TRUE(isTold("Tab", text("Sidebar width")));
    EXPECT_TRUE(isTold("Tab", text("Shop, up"))) << "its card";
    EXPECT_TRUE(isTold("Right", text("Database, down")));
    EXPECT_TRUE(isTold("ctrl+n", text("Website address")));
    const auto picker = item(AccessibleRole::comboBox, text("Keyword"));
    ASSERT_TRUE(picker && picker->node.act(text("SetFocus")));
    EXPECT_TRUE(isTold("Return", text("Must exist")));
    EXPECT_TRUE(isTold("Down", text("Must not exist")));
    ASSERT_TRUE(desktop.user.press("Return"));
    EXPECT_TRUE(waitFor([&] { return picker->node.description() == text("Must not exist"); }));
    EXPECT_TRUE(item(AccessibleRole::dialog, text("New Monitor"))) << "Return was the picker's";
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, TheSheetIsOneDialogAndCanBeFilledWithItsActions)
{
    ASSERT_TRUE(desktop.start());
    ASSERT_TRUE(press(AccessibleRole::pushButton, text("Add Monitor")));
    ASSERT_TRUE(waitForLine(text("dialog 'New Monitor'")));
    ASSERT_TRUE(press(AccessibleRole::pushButton, text("Advanced")));
    ASSERT_TRUE(waitForLine(text("panel 'Method'")));
    const QStringList intervals = {
        text("label 'CHECK EVERY'"), text("panel 'CHECK EVERY'"), text("radio button '30s'"),
        text("radio button '1m'"),   text("radio button '5m'"),   text("radio button '15m'"),
        text("radio button '30m'"),  text("radio button '1h'"),
    };
    const QStringList head = {text("dialog 'New Monitor'"), text("heading 'New Monitor'"),
                              text("panel 'Type'"), text("radio button 'Website'"),
                              text("radio button 'Port'")};
    const QStringList foot = {text("label 'Timeout'"), text("text 'Timeout'"),
                              text("push button 'Cancel'"), text("push button 'Start Monitoring'")};
    const QStringList website = {
        text("label 'CHECK FOR KEYWORD (OPTIONAL)'"),
        text("text 'CHECK FOR KEYWORD (OPTIONAL)'"),
        text("combo box 'Keyword'"),
        text("label 'ALERT IF SLOWER THAN (OPTIONAL)'"),
        text("text 'ALERT IF SLOWER THAN (OPTIONAL)'"),
        text("label 'ms'"),
        text("push button 'Advanced'"),
        text("label 'Method'"),
        text("panel 'Method'"),
        text("radio button 'GET'"),
        text("radio button 'HEAD'"),
        text("radio button 'POST'"),
    };
    const QStringList address = {text("text 'Website address'")};
    EXPECT_EQ(sheet(), head + address + intervals + website + foot);
    EXPECT_EQ(item(AccessibleRole::pushButton, text("Start Monitoring"))->description,
              text("Unavailable"));
    EXPECT_EQ(item(AccessibleRole::pushButton, text("Advanced"))->description, text("Expanded"));

    ASSERT_TRUE(press(AccessibleRole::radioButton, text("1h")));
    EXPECT_TRUE(waitForState(AccessibleRole::radioButton, text("1h"), AccessibleState::checked));
    EXPECT_FALSE(item(AccessibleRole::radioButton, text("5m"))->has(AccessibleState::checked));

    ASSERT_TRUE(press(AccessibleRole::comboBox, text("Keyword")));
    ASSERT_TRUE(waitForLine(text("list 'Keyword'")));
    ASSERT_TRUE(press(AccessibleRole::listItem, text("Must not exist")));
    ASSERT_TRUE(desktop.waitUntilGone(AccessibleRole::list, text("Keyword")));
    EXPECT_EQ(item(AccessibleRole::comboBox, text("Keyword"))->description, text("Must not exist"));

    ASSERT_TRUE(press(AccessibleRole::radioButton, text("Port")));
    ASSERT_TRUE(waitForLine(text("text 'HOST'")));
    const QStringList hostAndPort = {text("label 'HOST'"), text("text 'HOST'"),
                                     text("label 'PORT'"), text("text 'PORT'")};
    const QStringList advanced = {text("push button 'Advanced'")};
    EXPECT_EQ(sheet(), head + hostAndPort + intervals + advanced + foot);
    ASSERT_TRUE(press(AccessibleRole::pushButton, text("Cancel")));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::dialog, text("New Monitor")));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, TheEditSheetAndTheRowMenuSayWhatTheyAreAbout)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    ASSERT_TRUE(desktop.user.press({text("Down"), text("ctrl+e")}));
    ASSERT_TRUE(waitForLine(text("dialog 'Edit Monitor'")));
    EXPECT_TRUE(waitForLine(text("push button 'Save'")));
    const auto address = item(AccessibleRole::text, text("Website address"));
    ASSERT_TRUE(address);
    EXPECT_EQ(address->node.text(), QString::fromLatin1(server.url()));
    EXPECT_EQ(address->description, text("Valid"));
    EXPECT_TRUE(item(AccessibleRole::radioButton, text("1h"))->has(AccessibleState::checked));
    ASSERT_TRUE(desktop.user.press("Escape"));
    ASSERT_TRUE(desktop.waitUntilGone(AccessibleRole::dialog, text("Edit Monitor")));

    ASSERT_TRUE(desktop.user.press("shift+F10"));
    ASSERT_TRUE(waitForLine(text("popup menu 'Shop'")));
    EXPECT_EQ(spoken(desktop.items()).last(3),
              (QStringList{text("menu item 'Check Now'"), text("menu item 'Pause'"),
                           text("menu item 'Delete'")}));
    ASSERT_TRUE(press(AccessibleRole::menuItem, text("Pause")));
    EXPECT_TRUE(waitForLine(text("list item 'Shop, paused, .*")));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::popupMenu, text("Shop")));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, TheSettingsAreSwitchesWithTheirLabelsAsNames)
{
    ASSERT_TRUE(desktop.start());
    ASSERT_TRUE(press(AccessibleRole::pushButton, text("Settings")));
    ASSERT_TRUE(waitForLine(text("frame 'Settings'")));
    EXPECT_EQ(spoken(desktop.items()).last(9),
              (QStringList{
                  text("heading 'General'"), text("check box 'Launch at Login'"),
                  text("heading 'Notifications'"), text("check box 'Play Sounds on Status Change'"),
                  text("push button 'Open Notification Settings...'"), text("heading 'Data'"),
                  text("label 'Stored in'"), text("text 'Stored in'"),
                  text("push button 'Reveal in File Manager'")}));
    const auto folder = item(AccessibleRole::text, text("Stored in"));
    EXPECT_TRUE(folder->node.text().endsWith(text("data/Vantry/")));
    EXPECT_FALSE(folder->has(AccessibleState::editable));

    const QString sounds = text("Play Sounds on Status Change");
    EXPECT_TRUE(item(AccessibleRole::checkBox, sounds)->has(AccessibleState::checked));
    EXPECT_FALSE(
        item(AccessibleRole::checkBox, text("Launch at Login"))->has(AccessibleState::checked));
    ASSERT_TRUE(press(AccessibleRole::checkBox, text("Launch at Login")));
    EXPECT_TRUE(
        waitForState(AccessibleRole::checkBox, text("Launch at Login"), AccessibleState::checked));
    EXPECT_EQ(desktop.program.stop(), 0);
}

} // namespace ostrel::test
