#include "HostileBehaviours.h"
#include "NginxServer.h"
#include "NotificationDaemon.h"
#include "OstrelDesktop.h"
#include "Printers.h"
#include "Text.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

namespace ostrel::test {

namespace {

/// A shop's page with a title and an icon of its own, and something that listens besides.
QList<NginxSite> shopAndDatabase(const TestLeaf &leaf)
{
    return {{.leaf = leaf,
             .directives = "location = / { default_type text/html; return 200 "
                           "'<title>Corner Shop</title><link rel=\"icon\" href=\"/icon.png\">'; }\n"
                           "location = /icon.png { root .; }"},
            {.leaf = {}}};
}

/// One person's day with the program, from its first start to its end, on a computer that can
/// reach nothing but this test's servers.
class WindowJourneyTest : public testing::Test
{
protected:
    WindowJourneyTest()
    {
        desktop.program.setEnvironment(text("SSL_CERT_FILE"),
                                       QString::fromLatin1(certificates.authorityFile()));
        for (const char *name : {"http_proxy", "https_proxy"})
            desktop.program.setEnvironment(text(name), QString::fromLatin1(proxy.url()));
        QDir(desktop.program.dataDir()).removeRecursively();

        QImage icon(32, 32, QImage::Format_RGB32);
        for (int x = 0; x < icon.width(); ++x) {
            for (int y = 0; y < icon.height(); ++y)
                icon.setPixel(x, y, qRgb(8 * x, 8 * y, 128));
        }
        EXPECT_TRUE(icon.save(servers.folder() + text("/icon.png")));
    }

    [[nodiscard]] std::optional<AccessibleItem> find(AccessibleRole role, const QString &pattern)
    {
        const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
        std::optional<AccessibleItem> found;
        (void)waitFor([&] {
            // What lies on top was made last.
            for (const AccessibleItem &item : desktop.items()) {
                if (item.role == role && whole.match(item.name).hasMatch())
                    found = item;
            }
            return found.has_value();
        });
        EXPECT_TRUE(found) << pattern.toStdString() << " isn't in\n"
                           << describe(desktop.items()).toStdString();
        return found;
    }
    [[nodiscard]] bool sees(AccessibleRole role, const QString &pattern)
    {
        return find(role, pattern).has_value();
    }
    [[nodiscard]] bool click(AccessibleRole role, const QString &pattern)
    {
        const auto found = find(role, pattern);
        return found && desktop.user.click(found->extents.center());
    }
    [[nodiscard]] bool openMenu(const QString &row)
    {
        const auto found = find(AccessibleRole::listItem, row);
        return found && desktop.user.clickRight(found->extents.center()) &&
               sees(AccessibleRole::popupMenu, text(".*"));
    }
    [[nodiscard]] bool isGone(AccessibleRole role, const QString &name)
    {
        return desktop.waitUntilGone(role, name);
    }

    /// Whether the file comes to hold monitors of which @p condition is true.
    template<typename Condition>
    [[nodiscard]] bool keeps(Condition condition)
    {
        return waitFor([&] {
            const auto monitors = desktop.program.readMonitors();
            return monitors && condition(*monitors);
        });
    }
    [[nodiscard]] std::size_t checkCount(const QUuid &monitorId) const
    {
        const auto checks = desktop.program.readChecks();
        return checks ? checks->value(monitorId).size() : 0;
    }
    [[nodiscard]] QStringList notifications()
    {
        QStringList titles;
        for (const ShownNotification &shown : daemon.closeAll())
            titles += shown.title;
        return titles;
    }

    void addTheShopFromTheClipboard();
    void addTheDatabaseByTyping();
    void seeTheDatabaseGoDownAndComeBack();
    void editTheDatabase();
    void useTheDatabasesMenu();
    void changeTheSettings();
    void closeTheWindowAndOpenItAgain();

    TestCertificates certificates;
    NginxServer servers{shopAndDatabase(certificates.forAnotherHost())};
    HostileServer proxy{tunnelInto({{"elsewhere.example:443", servers.port(0)}})};
    OstrelDesktop desktop;
    NotificationDaemon daemon{desktop.sessionBus, desktop.display};
    const QString database = QStringLiteral("127.0.0.1:%1").arg(servers.port(1));
    QUuid shopId;
    QUuid databaseId;
};

void WindowJourneyTest::addTheShopFromTheClipboard()
{
    ASSERT_TRUE(sees(AccessibleRole::label, text("Start Monitoring")));
    ASSERT_TRUE(desktop.user.copy(text(" https://elsewhere.example/\n")));
    ASSERT_TRUE(click(AccessibleRole::pushButton, text("Add Monitor")));
    ASSERT_TRUE(click(AccessibleRole::pushButton, text("Paste: https://elsewhere.example/")));
    ASSERT_TRUE(isGone(AccessibleRole::pushButton, text("Paste: https://elsewhere.example/")));
    EXPECT_EQ(find(AccessibleRole::text, text("Website address"))->node.text(),
              text("https://elsewhere.example/"));
    ASSERT_TRUE(click(AccessibleRole::pushButton, text("Start Monitoring")));

    EXPECT_TRUE(isGone(AccessibleRole::dialog, text("New Monitor")));
    EXPECT_TRUE(
        sees(AccessibleRole::listItem, text("Corner Shop, up, \\d+ ms, 24-hour uptime 100%")));
    EXPECT_TRUE(sees(AccessibleRole::heading, text("Corner Shop"))) << "its page opens";
    ASSERT_TRUE(keeps([](const QList<Monitor> &monitors) {
        return monitors.size() == 1 && monitors[0].name == text("Corner Shop") &&
               monitors[0].url == text("https://elsewhere.example/") && monitors[0].isEnabled;
    }));
    shopId = desktop.program.readMonitors()->constFirst().id;
    EXPECT_TRUE(waitFor([this] {
        return QDir(desktop.program.dataDir() + text("/favicons")).entryList(QDir::Files).size() ==
               1;
    }));
    EXPECT_EQ(servers.accessLog().filter(text("GET /icon.png 200")).size(), 1);
    // Nobody else was asked.
    const auto requests = proxy.requests();
    EXPECT_TRUE(std::ranges::all_of(requests, [](const SeenRequest &request) {
        return request.target == "elsewhere.example:443";
    }));
}

void WindowJourneyTest::addTheDatabaseByTyping()
{
    ASSERT_TRUE(desktop.user.press("ctrl+n"));
    ASSERT_TRUE(sees(AccessibleRole::dialog, text("New Monitor")));
    ASSERT_TRUE(desktop.user.type(database));
    ASSERT_TRUE(waitFor([this] {
        const auto port = itemNamed(desktop.items(), AccessibleRole::text, text("PORT"));
        return port && port->node.text() == QString::number(servers.port(1));
    }));
    EXPECT_TRUE(find(AccessibleRole::radioButton, text("Port"))->has(AccessibleState::checked));
    EXPECT_EQ(find(AccessibleRole::text, text("HOST"))->node.text(), text("127.0.0.1"));
    ASSERT_TRUE(desktop.user.press("Return"));

    EXPECT_TRUE(isGone(AccessibleRole::dialog, text("New Monitor")));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + text(", up, .*")));
    ASSERT_TRUE(keeps([this](const QList<Monitor> &monitors) {
        return monitors.size() == 2 && monitors[1].type == MonitorType::port &&
               monitors[1].name == database && monitors[1].url == text("127.0.0.1") &&
               monitors[1].port == servers.port(1);
    }));
    databaseId = desktop.program.readMonitors()->constLast().id;
}

void WindowJourneyTest::seeTheDatabaseGoDownAndComeBack()
{
    servers.stop();
    ASSERT_TRUE(click(AccessibleRole::listItem, database + text(", up, .*")));
    ASSERT_TRUE(sees(AccessibleRole::heading, database));
    ASSERT_TRUE(desktop.user.press("ctrl+r"));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + text(", down, 24-hour uptime .*")));
    EXPECT_TRUE(sees(AccessibleRole::label, text("DOWN")));
    EXPECT_EQ(daemon.displayedCount(), 0) << "once is chance";
    ASSERT_TRUE(click(AccessibleRole::pushButton, text("Check now")));
    EXPECT_TRUE(waitFor([this] { return daemon.displayedCount() == 1; }));
    ASSERT_TRUE(click(AccessibleRole::listItem, text("Ostrel")));
    EXPECT_TRUE(sees(AccessibleRole::label, text("Issues Detected")));
    EXPECT_TRUE(sees(AccessibleRole::label, text("1 of 2 monitors up")));

    ASSERT_TRUE(servers.startAgain());
    ASSERT_TRUE(click(AccessibleRole::pushButton, database + text(", down, .*")));
    ASSERT_TRUE(sees(AccessibleRole::heading, database));
    ASSERT_TRUE(desktop.user.press("ctrl+r"));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + text(", up, .*")));
    EXPECT_TRUE(waitFor([this] { return daemon.displayedCount() == 2; }));
    EXPECT_EQ(notifications(),
              (QStringList{database + text(" is Back Up"), database + text(" is Down")}));
    ASSERT_TRUE(desktop.user.press("Escape"));
    ASSERT_TRUE(click(AccessibleRole::listItem, text("Ostrel")));
    EXPECT_TRUE(sees(AccessibleRole::label, text("All Systems Operational")));
}

void WindowJourneyTest::editTheDatabase()
{
    ASSERT_TRUE(click(AccessibleRole::listItem, database + text(", up, .*")));
    ASSERT_TRUE(sees(AccessibleRole::heading, database));
    ASSERT_TRUE(desktop.user.press("ctrl+e"));
    ASSERT_TRUE(sees(AccessibleRole::dialog, text("Edit Monitor")));
    ASSERT_TRUE(click(AccessibleRole::radioButton, text("1h")));
    ASSERT_TRUE(desktop.user.press("Return"));
    EXPECT_TRUE(isGone(AccessibleRole::dialog, text("Edit Monitor")));
    EXPECT_TRUE(keeps([this](const QList<Monitor> &monitors) {
        return monitors.size() == 2 && monitors[1].id == databaseId &&
               monitors[1].interval == Seconds(3600) && monitors[1].name == database;
    }));
}

void WindowJourneyTest::useTheDatabasesMenu()
{
    const auto isPaused = [](const QList<Monitor> &monitors) { return !monitors[1].isEnabled; };
    ASSERT_TRUE(openMenu(database + text(", up, .*")));
    ASSERT_TRUE(click(AccessibleRole::menuItem, text("Pause")));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + text(", paused, .*")));
    EXPECT_TRUE(keeps(isPaused));

    // From the keyboard, which the menu has given back to the list.
    ASSERT_TRUE(isGone(AccessibleRole::menuItem, text("Pause")));
    ASSERT_TRUE(desktop.user.press("shift+F10"));
    ASSERT_TRUE(sees(AccessibleRole::menuItem, text("Resume")));
    ASSERT_TRUE(desktop.user.press({text("Down"), text("Down"), text("Return")}));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + text(", up, .*")));
    EXPECT_TRUE(keeps(std::not_fn(isPaused)));

    ASSERT_TRUE(isGone(AccessibleRole::menuItem, text("Resume")));
    const std::size_t shopChecks = checkCount(shopId);
    ASSERT_TRUE(openMenu(text("Corner Shop, .*")));
    ASSERT_TRUE(click(AccessibleRole::menuItem, text("Check Now")));
    EXPECT_TRUE(waitFor([&] { return checkCount(shopId) > shopChecks; }));

    ASSERT_TRUE(isGone(AccessibleRole::menuItem, text("Check Now")));
    ASSERT_TRUE(openMenu(database + text(", up, .*")));
    ASSERT_TRUE(click(AccessibleRole::menuItem, text("Delete")));
    EXPECT_TRUE(keeps([this](const QList<Monitor> &monitors) {
        return monitors.size() == 1 && monitors[0].id == shopId;
    }));
    EXPECT_TRUE(waitFor([this] { return checkCount(databaseId) == 0; }));
    EXPECT_TRUE(sees(AccessibleRole::heading, text("Corner Shop"))) << "what is left is shown";
}

void WindowJourneyTest::changeTheSettings()
{
    const auto kept = [this](const char *key) { return desktop.program.preference(key); };
    const QString loginItem = desktop.program.homeFile(text("config/autostart/ostrel.desktop"));
    ASSERT_TRUE(desktop.user.press("ctrl+comma"));
    ASSERT_TRUE(sees(AccessibleRole::frame, text("Settings")));
    ASSERT_TRUE(click(AccessibleRole::checkBox, text("Launch at Login")));
    EXPECT_TRUE(
        waitFor([&] { return kept("launchAtLogin") == "true" && QFile::exists(loginItem); }));
    ASSERT_TRUE(click(AccessibleRole::checkBox, text("Launch at Login")));
    EXPECT_TRUE(
        waitFor([&] { return kept("launchAtLogin") == "false" && !QFile::exists(loginItem); }));
    ASSERT_TRUE(click(AccessibleRole::checkBox, text("Play Sounds on Status Change")));
    EXPECT_TRUE(waitFor([&] { return kept("playSounds") == "false"; }));
    ASSERT_TRUE(desktop.user.press("Escape"));
    EXPECT_TRUE(isGone(AccessibleRole::frame, text("Settings")));
}

void WindowJourneyTest::closeTheWindowAndOpenItAgain()
{
    ASSERT_TRUE(desktop.windows.closeWindow(text("Ostrel")));
    EXPECT_TRUE(waitFor([this] { return !desktop.windows.hasWindow(text("Ostrel")); }));
    EXPECT_TRUE(desktop.program.isRunning());
    EXPECT_EQ(desktop.program.run({}).exitCode, 0);
    EXPECT_TRUE(waitFor([this] { return desktop.windows.hasWindow(text("Ostrel")); }));
    EXPECT_TRUE(waitFor([this] { return desktop.focusedItem().has_value(); }));
    EXPECT_TRUE(sees(AccessibleRole::heading, text("Corner Shop")));
}

} // namespace

TEST_F(WindowJourneyTest, FromTheFirstStartToTheEnd)
{
    ASSERT_TRUE(daemon.start());
    ASSERT_TRUE(desktop.start());
    ASSERT_NO_FATAL_FAILURE(addTheShopFromTheClipboard());
    ASSERT_NO_FATAL_FAILURE(addTheDatabaseByTyping());
    ASSERT_NO_FATAL_FAILURE(seeTheDatabaseGoDownAndComeBack());
    ASSERT_NO_FATAL_FAILURE(editTheDatabase());
    ASSERT_NO_FATAL_FAILURE(useTheDatabasesMenu());
    ASSERT_NO_FATAL_FAILURE(changeTheSettings());
    ASSERT_NO_FATAL_FAILURE(closeTheWindowAndOpenItAgain());
    ASSERT_TRUE(desktop.user.press("ctrl+q"));
    EXPECT_EQ(desktop.program.waitForEnd(), 0);
    EXPECT_EQ(desktop.program.readMonitors()->size(), 1);
}

} // namespace ostrel::test
