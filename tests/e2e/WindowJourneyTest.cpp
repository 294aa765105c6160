#include "HostileBehaviours.h"
#include "NginxServer.h"
#include "NotificationDaemon.h"
#include "OstrelDesktop.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// A shop's page with its own title and icon, and a second server that only listens.
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
        desktop.program.setEnvironment(u"SSL_CERT_FILE"_s,
                                       QString::fromLatin1(certificates.authorityFile()));
        for (const char *name : {"http_proxy", "https_proxy"})
            desktop.program.setEnvironment(QString::fromUtf8(name),
                                           QString::fromLatin1(proxy.url()));
        QDir(desktop.program.dataDir()).removeRecursively();

        QImage icon(32, 32, QImage::Format_RGB32);
        for (int x = 0; x < icon.width(); ++x) {
            for (int y = 0; y < icon.height(); ++y)
                icon.setPixel(x, y, qRgb(8 * x, 8 * y, 128));
        }
        EXPECT_TRUE(icon.save(servers.folder() + u"/icon.png"_s));
    }

    [[nodiscard]] std::optional<AccessibleItem> find(AccessibleRole role, const QString &pattern)
    {
        const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
        std::optional<AccessibleItem> found;
        (void)waitFor([&] {
            // What is on top was created last.
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
               sees(AccessibleRole::popupMenu, u".*"_s);
    }
    [[nodiscard]] bool isGone(AccessibleRole role, const QString &name)
    {
        return desktop.waitUntilGone(role, name);
    }

    /// Waits until the file holds monitors for which @p condition is true; false if that never
    /// happens.
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
    const QString database = u"127.0.0.1:%1"_s.arg(servers.port(1));
    QUuid shopId;
    QUuid databaseId;
};

void WindowJourneyTest::addTheShopFromTheClipboard()
{
    ASSERT_TRUE(sees(AccessibleRole::label, u"Start Monitoring"_s));
    ASSERT_TRUE(desktop.user.copy(u" https://elsewhere.example/\n"_s));
    ASSERT_TRUE(click(AccessibleRole::pushButton, u"Add Monitor"_s));
    ASSERT_TRUE(click(AccessibleRole::pushButton, u"Paste: https://elsewhere.example/"_s));
    ASSERT_TRUE(isGone(AccessibleRole::pushButton, u"Paste: https://elsewhere.example/"_s));
    EXPECT_EQ(find(AccessibleRole::text, u"Website address"_s)->node.text(),
              u"https://elsewhere.example/"_s);
    ASSERT_TRUE(click(AccessibleRole::pushButton, u"Start Monitoring"_s));

    EXPECT_TRUE(isGone(AccessibleRole::dialog, u"New Monitor"_s));
    EXPECT_TRUE(sees(AccessibleRole::listItem, u"Corner Shop, up, \\d+ ms, 24-hour uptime 100%"_s));
    EXPECT_TRUE(sees(AccessibleRole::heading, u"Corner Shop"_s)) << "its page opens";
    ASSERT_TRUE(keeps([](const QList<Monitor> &monitors) {
        return monitors.size() == 1 && monitors[0].name == u"Corner Shop"_s &&
               monitors[0].url == u"https://elsewhere.example/"_s && monitors[0].isEnabled;
    }));
    shopId = desktop.program.readMonitors()->constFirst().id;
    EXPECT_TRUE(waitFor([this] {
        return QDir(desktop.program.dataDir() + u"/favicons"_s).entryList(QDir::Files).size() == 1;
    }));
    EXPECT_EQ(servers.accessLog().filter(u"GET /icon.png 200"_s).size(), 1);
    // No other host was requested.
    const auto requests = proxy.requests();
    EXPECT_TRUE(std::ranges::all_of(requests, [](const SeenRequest &request) {
        return request.target == "elsewhere.example:443";
    }));
}

void WindowJourneyTest::addTheDatabaseByTyping()
{
    ASSERT_TRUE(desktop.user.press("ctrl+n"));
    ASSERT_TRUE(sees(AccessibleRole::dialog, u"New Monitor"_s));
    ASSERT_TRUE(desktop.user.type(database));
    ASSERT_TRUE(waitFor([this] {
        const auto port = itemNamed(desktop.items(), AccessibleRole::text, u"PORT"_s);
        return port && port->node.text() == QString::number(servers.port(1));
    }));
    EXPECT_TRUE(find(AccessibleRole::radioButton, u"Port"_s)->has(AccessibleState::checked));
    EXPECT_EQ(find(AccessibleRole::text, u"HOST"_s)->node.text(), u"127.0.0.1"_s);
    ASSERT_TRUE(desktop.user.press("Return"));

    EXPECT_TRUE(isGone(AccessibleRole::dialog, u"New Monitor"_s));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + u", up, .*"_s));
    ASSERT_TRUE(keeps([this](const QList<Monitor> &monitors) {
        return monitors.size() == 2 && monitors[1].type == MonitorType::port &&
               monitors[1].name == database && monitors[1].url == u"127.0.0.1"_s &&
               monitors[1].port == servers.port(1);
    }));
    databaseId = desktop.program.readMonitors()->constLast().id;
}

void WindowJourneyTest::seeTheDatabaseGoDownAndComeBack()
{
    servers.stop();
    ASSERT_TRUE(click(AccessibleRole::listItem, database + u", up, .*"_s));
    ASSERT_TRUE(sees(AccessibleRole::heading, database));
    ASSERT_TRUE(desktop.user.press("ctrl+r"));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + u", down, 24-hour uptime .*"_s));
    EXPECT_TRUE(sees(AccessibleRole::label, u"DOWN"_s));
    EXPECT_EQ(daemon.displayedCount(), 0) << "once is chance";
    ASSERT_TRUE(click(AccessibleRole::pushButton, u"Check now"_s));
    EXPECT_TRUE(waitFor([this] { return daemon.displayedCount() == 1; }));
    ASSERT_TRUE(click(AccessibleRole::listItem, u"Ostrel"_s));
    EXPECT_TRUE(sees(AccessibleRole::label, u"Issues Detected"_s));
    EXPECT_TRUE(sees(AccessibleRole::label, u"1 of 2 monitors up"_s));

    ASSERT_TRUE(servers.startAgain());
    ASSERT_TRUE(click(AccessibleRole::pushButton, database + u", down, .*"_s));
    ASSERT_TRUE(sees(AccessibleRole::heading, database));
    ASSERT_TRUE(desktop.user.press("ctrl+r"));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + u", up, .*"_s));
    EXPECT_TRUE(waitFor([this] { return daemon.displayedCount() == 2; }));
    EXPECT_EQ(notifications(),
              (QStringList{database + u" is Back Up"_s, database + u" is Down"_s}));
    ASSERT_TRUE(desktop.user.press("Escape"));
    ASSERT_TRUE(click(AccessibleRole::listItem, u"Ostrel"_s));
    EXPECT_TRUE(sees(AccessibleRole::label, u"All Systems Operational"_s));
}

void WindowJourneyTest::editTheDatabase()
{
    ASSERT_TRUE(click(AccessibleRole::listItem, database + u", up, .*"_s));
    ASSERT_TRUE(sees(AccessibleRole::heading, database));
    ASSERT_TRUE(desktop.user.press("ctrl+e"));
    ASSERT_TRUE(sees(AccessibleRole::dialog, u"Edit Monitor"_s));
    ASSERT_TRUE(click(AccessibleRole::radioButton, u"1h"_s));
    ASSERT_TRUE(desktop.user.press("Return"));
    EXPECT_TRUE(isGone(AccessibleRole::dialog, u"Edit Monitor"_s));
    EXPECT_TRUE(keeps([this](const QList<Monitor> &monitors) {
        return monitors.size() == 2 && monitors[1].id == databaseId &&
               monitors[1].interval == Seconds(3600) && monitors[1].name == database;
    }));
}

void WindowJourneyTest::useTheDatabasesMenu()
{
    const auto isPaused = [](const QList<Monitor> &monitors) { return !monitors[1].isEnabled; };
    ASSERT_TRUE(openMenu(database + u", up, .*"_s));
    ASSERT_TRUE(click(AccessibleRole::menuItem, u"Pause"_s));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + u", paused, .*"_s));
    EXPECT_TRUE(keeps(isPaused));

    // With the keyboard, whose focus the menu has given back to the list.
    ASSERT_TRUE(isGone(AccessibleRole::menuItem, u"Pause"_s));
    ASSERT_TRUE(desktop.user.press("shift+F10"));
    ASSERT_TRUE(sees(AccessibleRole::menuItem, u"Resume"_s));
    ASSERT_TRUE(desktop.user.press({u"Down"_s, u"Down"_s, u"Return"_s}));
    EXPECT_TRUE(sees(AccessibleRole::listItem, database + u", up, .*"_s));
    EXPECT_TRUE(keeps(std::not_fn(isPaused)));

    ASSERT_TRUE(isGone(AccessibleRole::menuItem, u"Resume"_s));
    const std::size_t shopChecks = checkCount(shopId);
    ASSERT_TRUE(openMenu(u"Corner Shop, .*"_s));
    ASSERT_TRUE(click(AccessibleRole::menuItem, u"Check Now"_s));
    EXPECT_TRUE(waitFor([&] { return checkCount(shopId) > shopChecks; }));

    ASSERT_TRUE(isGone(AccessibleRole::menuItem, u"Check Now"_s));
    ASSERT_TRUE(openMenu(database + u", up, .*"_s));
    ASSERT_TRUE(click(AccessibleRole::menuItem, u"Delete"_s));
    EXPECT_TRUE(keeps([this](const QList<Monitor> &monitors) {
        return monitors.size() == 1 && monitors[0].id == shopId;
    }));
    EXPECT_TRUE(waitFor([this] { return checkCount(databaseId) == 0; }));
    EXPECT_TRUE(sees(AccessibleRole::heading, u"Corner Shop"_s)) << "what is left is shown";
}

void WindowJourneyTest::changeTheSettings()
{
    const auto kept = [this](const char *key) { return desktop.program.preference(key); };
    const QString loginItem = desktop.program.loginItem();
    ASSERT_TRUE(desktop.user.press("ctrl+comma"));
    ASSERT_TRUE(sees(AccessibleRole::frame, u"Settings"_s));
    ASSERT_TRUE(click(AccessibleRole::checkBox, u"Launch at Login"_s));
    EXPECT_TRUE(
        waitFor([&] { return kept("launchAtLogin") == "true" && QFile::exists(loginItem); }));
    ASSERT_TRUE(click(AccessibleRole::checkBox, u"Launch at Login"_s));
    EXPECT_TRUE(
        waitFor([&] { return kept("launchAtLogin") == "false" && !QFile::exists(loginItem); }));
    ASSERT_TRUE(click(AccessibleRole::checkBox, u"Play Sounds on Status Change"_s));
    EXPECT_TRUE(waitFor([&] { return kept("playSounds") == "false"; }));
    ASSERT_TRUE(desktop.user.press("Escape"));
    EXPECT_TRUE(isGone(AccessibleRole::frame, u"Settings"_s));
}

void WindowJourneyTest::closeTheWindowAndOpenItAgain()
{
    ASSERT_TRUE(desktop.windows.closeWindow(u"Ostrel"_s));
    EXPECT_TRUE(waitFor([this] { return !desktop.windows.hasWindow(u"Ostrel"_s); }));
    EXPECT_TRUE(desktop.program.isRunning());
    EXPECT_EQ(desktop.program.run({}).exitCode, 0);
    EXPECT_TRUE(waitFor([this] { return desktop.windows.hasWindow(u"Ostrel"_s); }));
    EXPECT_TRUE(waitFor([this] { return desktop.focusedItem().has_value(); }));
    EXPECT_TRUE(sees(AccessibleRole::heading, u"Corner Shop"_s));
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
