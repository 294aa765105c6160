#include "CheckJson.h"
#include "ExpectedMonitor.h"
#include "FocusListener.h"
#include "HostileBehaviours.h"
#include "OstrelDesktop.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

/// Roles that give a screen reader nothing to say or to do.
constexpr AccessibleRole emptyRoles[] = {AccessibleRole::invalid, AccessibleRole::filler,
                                         AccessibleRole::unknown};

/// The actions that an item of @p role must offer, each once.
QStringList actionsOf(AccessibleRole role)
{
    switch (role) {
    case AccessibleRole::checkBox:
    case AccessibleRole::radioButton:
        return {u"Press"_s, u"Toggle"_s};
    case AccessibleRole::pushButton:
    case AccessibleRole::menuItem:
    case AccessibleRole::comboBox:
        return {u"Press"_s};
    case AccessibleRole::splitPane:
        return {u"Decrease"_s, u"Increase"_s};
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

/// "role 'name'" of every item; also expects each to be usable.
QStringList spoken(const QList<AccessibleItem> &items)
{
    QStringList lines;
    for (const AccessibleItem &item : items) {
        if (item.role == AccessibleRole::application)
            continue;
        expectUsable(item);
        lines += item.node.roleName() + u" '"_s + item.name + u'\'';
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
            .error = isUp ? OptionalText() : OptionalText(u"HTTP 503"_s)};
}

QStringList header(const QString &name, const QString &address)
{
    return {u"heading '%1'"_s.arg(name), u"push button '%1'"_s.arg(address),
            u"push button 'Check now'"_s, u"push button 'Edit monitor'"_s,
            u"push button 'Get help'"_s};
}

class AccessibleTreeTest : public testing::Test
{
protected:
    AccessibleTreeTest()
    {
        for (Monitor &monitor : monitors)
            monitor.interval = monitor.timeout = Seconds(3600);
        monitors[0].keyword = u"OK"_s;
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
        QFile file(desktop.program.dataDir() + u"/checks.json"_s);
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray::fromStdString(json + "]]"));
    }

    /// Starts with a monitor in every state; nothing shown changes any more but the clock.
    void startWatching()
    {
        desktop.program.writeMonitors(monitors);
        writeHistory({checkOf(monitors[0], 120min, true), checkOf(monitors[0], 60min, false),
                      checkOf(monitors[0], 30min, true)});
        ASSERT_TRUE(desktop.start());
        ASSERT_TRUE(waitForLine(u"list item 'Database, down, .*"_s));
        ASSERT_TRUE(waitForLine(u"list item 'Shop, up, .*"_s));
    }

    [[nodiscard]] bool waitForLine(const QString &pattern)
    {
        const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
        return waitFor([&] { return spoken(desktop.items()).indexOf(whole) >= 0; });
    }

    /// Waits until the spoken lines match @p patterns, one by one.
    void expectSpoken(const QStringList &patterns)
    {
        QStringList lines;
        const bool isSpoken = waitFor([&] {
            lines = spoken(desktop.items());
            return matchesAll(lines, patterns);
        });
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
        return found && found->node.act(u"Press"_s);
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

    /// The spoken lines of the open sheet.
    [[nodiscard]] QStringList sheet()
    {
        const QStringList lines = spoken(desktop.items());
        return lines.sliced(lines.indexOf(QRegularExpression(u"^dialog .*"_s)));
    }

    [[nodiscard]] static QStringList sidebar(const QStringList &rows)
    {
        return QStringList{u"frame 'Ostrel'"_s, u"list 'Monitors'"_s, u"list item 'Ostrel'"_s} +
               rows +
               QStringList{u"push button 'Add Monitor'"_s, u"push button 'Settings'"_s,
                           u"splitter 'Sidebar width'"_s};
    }
    [[nodiscard]] static QStringList fourRows()
    {
        return {u"list item 'Shop, up, \\d+ ms, 24-hour uptime 75.0%'"_s,
                u"list item 'Database, down, 24-hour uptime 0.0%'"_s,
                u"list item 'Quiet, pending, 24-hour uptime 100%'"_s,
                u"list item 'Old Shop, paused, 24-hour uptime 100%'"_s};
    }

    HostileServer server{answerWith("OK")};
    HostileServer silent{staySilent};
    QList<Monitor> monitors = {
        webMonitor(u"Shop"_s, server.url()),
        portMonitor(u"Database"_s, u"127.0.0.1"_s, closedPort()),
        webMonitor(u"Quiet"_s, silent.url()),
        webMonitor(u"Old Shop"_s, server.url()),
    };
    OstrelDesktop desktop;
};

} // namespace

TEST_F(AccessibleTreeTest, TheEmptyDashboardShowsTheInvitation)
{
    ASSERT_TRUE(desktop.start());
    expectSpoken(sidebar({}) + QStringList{u"label 'Start Monitoring'"_s,
                                           u"label 'Add a URL to track uptime and response time'"_s,
                                           u"push button 'Add Monitor'"_s});
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, TheDashboardNamesEveryMonitorAndThePagesNameAllThatTheyShow)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    const QStringList rows = sidebar(fourRows());
    QStringList cards = fourRows();
    cards.replaceInStrings(QRegularExpression(u"^list item"_s), u"push button"_s);
    expectSpoken(rows +
                 QStringList{u"list 'Dashboard'"_s, u"label 'Issues Detected'"_s,
                             u"label '1 of 4 monitors up'"_s} +
                 cards);

    ASSERT_TRUE(desktop.user.press("Down"));
    expectSpoken(rows + header(u"Shop"_s, u"127\\.0\\.0\\.1:\\d+"_s) +
                 QStringList{u"label 'UP'"_s, u"label 'Keyword OK'"_s, u"label 'Last checked .+'"_s,
                             u"label 'Avg Response, \\d+ ms'"_s, u"label 'Uptime 24h, 75.0 %'"_s,
                             u"label 'Uptime 7d, 75.0 %'"_s, u"label 'Uptime 30d, 75.0 %'"_s,
                             u"heading 'Uptime'"_s, u"label '75.00%'"_s,
                             u"graphic 'Uptime 75.00%, checks: 4, failed: 1, oldest: 2h ago'"_s,
                             u"label '2h ago'"_s, u"label 'Now'"_s, u"heading 'Response Time'"_s,
                             u"label '\\d+ ms'"_s,
                             u"graphic 'Response Time: newest \\d+ ms, lowest \\d+ ms, "
                             "highest 245 ms, average \\d+ ms'"_s,
                             u"heading 'Recent Checks'"_s, u"label '4 in 24h'"_s});

    // The newest checks are below the window's edge.
    ASSERT_TRUE(desktop.user.press("Next"));
    const QString clock = u"\\d\\d:\\d\\d"_s;
    EXPECT_TRUE(waitForLine(u"list 'Recent Checks'"_s));
    EXPECT_TRUE(waitForLine(u"list item '%1, up, 200, \\d+ ms'"_s.arg(clock)));
    EXPECT_TRUE(waitForLine(u"list item '%1, down, 503, HTTP 503'"_s.arg(clock)));

    ASSERT_TRUE(desktop.user.press("Down"));
    expectSpoken(
        rows + header(u"Database"_s, u"127\\.0\\.0\\.1"_s) +
        QStringList{
            u"label 'DOWN'"_s, u"label 'Port \\d+'"_s, u"label 'Last checked .+'"_s,
            u"label 'Avg Response, --'"_s, u"label 'Uptime 24h, 0.0 %'"_s,
            u"label 'Uptime 7d, 0.0 %'"_s, u"label 'Uptime 30d, 0.0 %'"_s, u"heading 'Uptime'"_s,
            u"label '0.00%'"_s, u"graphic 'Uptime 0.00%, checks: 1, failed: 1, oldest: .+'"_s,
            u"label '.+ ago'"_s, u"label 'Now'"_s, u"heading 'Response Time'"_s,
            u"label 'Waiting for data'"_s, u"heading 'Recent Checks'"_s, u"label '1 in 24h'"_s});

    ASSERT_TRUE(desktop.user.press("Down"));
    expectSpoken(rows + header(u"Quiet"_s, u"127\\.0\\.0\\.1:\\d+"_s) +
                 QStringList{u"label 'PENDING'"_s, u"label 'Avg Response, --'"_s,
                             u"label 'Uptime 24h, 100 %'"_s, u"label 'Uptime 7d, 100 %'"_s,
                             u"label 'Uptime 30d, 100 %'"_s, u"heading 'Uptime'"_s,
                             u"graphic 'Uptime: No data'"_s, u"label 'Collecting data...'"_s,
                             u"label 'No data'"_s, u"label 'Now'"_s, u"heading 'Response Time'"_s,
                             u"label 'No checks yet'"_s, u"heading 'Recent Checks'"_s,
                             u"label '0 in 24h'"_s});
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, ARowReportsItsSelectionAndCanBeFocusedAndPressed)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    ASSERT_TRUE(desktop.user.press("Down"));
    ASSERT_TRUE(waitFor([this] { return focusedName().startsWith(u"Shop, "_s); }));
    const auto shop = *desktop.focusedItem();
    EXPECT_EQ(shop.role, AccessibleRole::listItem);
    EXPECT_TRUE(shop.has(AccessibleState::selected));
    EXPECT_EQ(shop.description, QString::fromLatin1(server.url()).section(u'/', 2, 2));

    // If a tool gives a row the focus, the row shows its page, and the arrow keys continue from
    // there.
    const auto quiet = item(AccessibleRole::listItem, u"Quiet, pending, 24-hour uptime 100%"_s);
    ASSERT_TRUE(quiet && quiet->node.act(u"SetFocus"_s));
    EXPECT_TRUE(waitForLine(u"heading 'Quiet'"_s));
    ASSERT_TRUE(desktop.user.press("Up"));
    EXPECT_TRUE(waitForLine(u"heading 'Database'"_s));
    ASSERT_TRUE(shop.node.act(u"Press"_s));
    EXPECT_TRUE(waitForLine(u"heading 'Shop'"_s));

    const auto home = item(AccessibleRole::listItem, u"Ostrel"_s);
    ASSERT_TRUE(home && home->node.act(u"Press"_s));
    ASSERT_TRUE(waitForLine(u"list 'Dashboard'"_s));
    const auto card = item(AccessibleRole::pushButton, u"Old Shop, paused, 24-hour uptime 100%"_s);
    ASSERT_TRUE(card && card->node.act(u"SetFocus"_s));
    EXPECT_TRUE(waitFor([this] { return focusedName().startsWith(u"Old Shop"_s); }));
    ASSERT_TRUE(desktop.user.press("Return"));
    EXPECT_TRUE(waitForLine(u"heading 'Old Shop'"_s));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, FocusChangesAreAnnounced)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    FocusListener listener(desktop.accessibility.connection());
    const auto isTold = [&](const char *key, const QString &name) {
        listener.forget();
        return desktop.user.press(key) &&
               waitFor([&] { return listener.heard().filter(name).size() == 1; });
    };
    EXPECT_TRUE(isTold("Down", u"Shop, up"_s));
    EXPECT_TRUE(isTold("Down", u"Database, down"_s));
    ASSERT_TRUE(desktop.user.press("shift+F10"));
    ASSERT_TRUE(waitForLine(u"popup menu 'Database'"_s));
    EXPECT_TRUE(isTold("Down", u"Check Now"_s));
    EXPECT_TRUE(isTold("Down", u"Pause"_s));
    EXPECT_TRUE(isTold("Escape", u"Database, down"_s));
    EXPECT_TRUE(isTold("Escape", u"Ostrel"_s));
    EXPECT_TRUE(isTold("Tab", u"Add Monitor"_s));
    EXPECT_TRUE(isTold("Tab", u"Settings"_s));
    EXPECT_TRUE(isTold("Tab", u"Sidebar width"_s));
    EXPECT_TRUE(isTold("Tab", u"Shop, up"_s)) << "its card";
    EXPECT_TRUE(isTold("Right", u"Database, down"_s));
    EXPECT_TRUE(isTold("ctrl+n", u"Website address"_s));
    const auto picker = item(AccessibleRole::comboBox, u"Keyword"_s);
    ASSERT_TRUE(picker && picker->node.act(u"SetFocus"_s));
    EXPECT_TRUE(isTold("space", u"Must exist"_s));
    EXPECT_TRUE(isTold("Down", u"Must not exist"_s));
    ASSERT_TRUE(desktop.user.press("Return"));
    EXPECT_TRUE(waitFor([&] { return picker->node.description() == u"Must not exist"_s; }));
    EXPECT_TRUE(item(AccessibleRole::dialog, u"New Monitor"_s)) << "Return was the picker's";
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, TheSheetIsOneDialogAndCanBeFilledThroughItsActions)
{
    ASSERT_TRUE(desktop.start());
    ASSERT_TRUE(press(AccessibleRole::pushButton, u"Add Monitor"_s));
    ASSERT_TRUE(waitForLine(u"dialog 'New Monitor'"_s));
    ASSERT_TRUE(press(AccessibleRole::pushButton, u"Advanced"_s));
    ASSERT_TRUE(waitForLine(u"panel 'Method'"_s));
    const QStringList intervals = {
        u"label 'CHECK EVERY'"_s, u"panel 'CHECK EVERY'"_s, u"radio button '30s'"_s,
        u"radio button '1m'"_s,   u"radio button '5m'"_s,   u"radio button '15m'"_s,
        u"radio button '30m'"_s,  u"radio button '1h'"_s,
    };
    const QStringList head = {u"dialog 'New Monitor'"_s, u"heading 'New Monitor'"_s,
                              u"panel 'Type'"_s, u"radio button 'Website'"_s,
                              u"radio button 'Port'"_s};
    const QStringList foot = {u"label 'Timeout'"_s, u"text 'Timeout'"_s, u"push button 'Cancel'"_s,
                              u"push button 'Start Monitoring'"_s};
    const QStringList website = {
        u"label 'CHECK FOR KEYWORD (OPTIONAL)'"_s,
        u"text 'CHECK FOR KEYWORD (OPTIONAL)'"_s,
        u"combo box 'Keyword'"_s,
        u"label 'ALERT IF SLOWER THAN (OPTIONAL)'"_s,
        u"text 'ALERT IF SLOWER THAN (OPTIONAL)'"_s,
        u"label 'ms'"_s,
        u"push button 'Advanced'"_s,
        u"label 'Method'"_s,
        u"panel 'Method'"_s,
        u"radio button 'GET'"_s,
        u"radio button 'HEAD'"_s,
        u"radio button 'POST'"_s,
    };
    const QStringList address = {u"text 'Website address'"_s};
    EXPECT_EQ(sheet(), head + address + intervals + website + foot);
    EXPECT_EQ(item(AccessibleRole::pushButton, u"Start Monitoring"_s)->description,
              u"Unavailable"_s);
    EXPECT_EQ(item(AccessibleRole::pushButton, u"Advanced"_s)->description, u"Expanded"_s);

    ASSERT_TRUE(press(AccessibleRole::radioButton, u"1h"_s));
    EXPECT_TRUE(waitForState(AccessibleRole::radioButton, u"1h"_s, AccessibleState::checked));
    EXPECT_FALSE(item(AccessibleRole::radioButton, u"5m"_s)->has(AccessibleState::checked));

    ASSERT_TRUE(press(AccessibleRole::comboBox, u"Keyword"_s));
    ASSERT_TRUE(waitForLine(u"list 'Keyword'"_s));
    ASSERT_TRUE(press(AccessibleRole::listItem, u"Must not exist"_s));
    ASSERT_TRUE(desktop.waitUntilGone(AccessibleRole::list, u"Keyword"_s));
    EXPECT_EQ(item(AccessibleRole::comboBox, u"Keyword"_s)->description, u"Must not exist"_s);

    ASSERT_TRUE(press(AccessibleRole::radioButton, u"Port"_s));
    ASSERT_TRUE(waitForLine(u"text 'HOST'"_s));
    const QStringList hostAndPort = {u"label 'HOST'"_s, u"text 'HOST'"_s, u"label 'PORT'"_s,
                                     u"text 'PORT'"_s};
    const QStringList advanced = {u"push button 'Advanced'"_s};
    EXPECT_EQ(sheet(), head + hostAndPort + intervals + advanced + foot);
    ASSERT_TRUE(press(AccessibleRole::pushButton, u"Cancel"_s));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::dialog, u"New Monitor"_s));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, TheEditSheetAndTheRowMenuNameTheirMonitor)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    ASSERT_TRUE(desktop.user.press({u"Down"_s, u"ctrl+e"_s}));
    ASSERT_TRUE(waitForLine(u"dialog 'Edit Monitor'"_s));
    EXPECT_TRUE(waitForLine(u"push button 'Save'"_s));
    const auto address = item(AccessibleRole::text, u"Website address"_s);
    ASSERT_TRUE(address);
    EXPECT_EQ(address->node.text(), QString::fromLatin1(server.url()));
    EXPECT_EQ(address->description, u"Valid"_s);
    EXPECT_TRUE(item(AccessibleRole::radioButton, u"1h"_s)->has(AccessibleState::checked));
    ASSERT_TRUE(desktop.user.press("Escape"));
    ASSERT_TRUE(desktop.waitUntilGone(AccessibleRole::dialog, u"Edit Monitor"_s));

    ASSERT_TRUE(desktop.user.press("shift+F10"));
    ASSERT_TRUE(waitForLine(u"popup menu 'Shop'"_s));
    EXPECT_EQ(
        spoken(desktop.items()).last(3),
        (QStringList{u"menu item 'Check Now'"_s, u"menu item 'Pause'"_s, u"menu item 'Delete'"_s}));
    ASSERT_TRUE(press(AccessibleRole::menuItem, u"Pause"_s));
    EXPECT_TRUE(waitForLine(u"list item 'Shop, paused, .*"_s));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::popupMenu, u"Shop"_s));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(AccessibleTreeTest, TheSettingsAreSwitchesWithTheirLabelsAsNames)
{
    ASSERT_TRUE(desktop.start());
    ASSERT_TRUE(press(AccessibleRole::pushButton, u"Settings"_s));
    ASSERT_TRUE(waitForLine(u"frame 'Settings'"_s));
    EXPECT_EQ(
        spoken(desktop.items()).last(9),
        (QStringList{u"heading 'General'"_s, u"check box 'Launch at Login'"_s,
                     u"heading 'Notifications'"_s, u"check box 'Play Sounds on Status Change'"_s,
                     u"push button 'Open Notification Settings...'"_s, u"heading 'Data'"_s,
                     u"label 'Stored in'"_s, u"text 'Stored in'"_s,
                     u"push button 'Reveal in File Manager'"_s}));
    const auto folder = item(AccessibleRole::text, u"Stored in"_s);
    EXPECT_TRUE(folder->node.text().endsWith(u"data/Vantry/"_s));
    EXPECT_FALSE(folder->has(AccessibleState::editable));

    const QString sounds = u"Play Sounds on Status Change"_s;
    EXPECT_TRUE(item(AccessibleRole::checkBox, sounds)->has(AccessibleState::checked));
    EXPECT_FALSE(
        item(AccessibleRole::checkBox, u"Launch at Login"_s)->has(AccessibleState::checked));
    ASSERT_TRUE(press(AccessibleRole::checkBox, u"Launch at Login"_s));
    EXPECT_TRUE(
        waitForState(AccessibleRole::checkBox, u"Launch at Login"_s, AccessibleState::checked));
    EXPECT_EQ(desktop.program.stop(), 0);
}

} // namespace ostrel::test
