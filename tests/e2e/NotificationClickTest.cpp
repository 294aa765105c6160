#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelDesktop.h"
#include "StubNotificationDaemon.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class NotificationClickTest : public testing::Test
{
protected:
    void startDaemon()
    {
        daemon.reset(); // Before the new one asks for the name.
        daemon = std::make_unique<StubNotificationDaemon>(desktop.sessionBus,
                                                          QStringList{u"body"_s, u"actions"_s});
    }
    /// Watches a shop and a blog that are both down until both have been notified.
    void startWatching()
    {
        startDaemon();
        desktop.program.writeMonitors({blog, shop});
        ASSERT_TRUE(desktop.start());
        ASSERT_TRUE(waitFor([this] { return idOf(u"Shop"_s) && idOf(u"Blog"_s); }));
    }
    /// The daemon's id of the notification of the monitor @p name; 0 if there is none.
    [[nodiscard]] uint idOf(const QString &name) const
    {
        uint next = StubNotificationDaemon::firstId;
        for (const auto &sent : daemon->notifications()) {
            const uint id = sent.replacesId != 0 ? sent.replacesId : next++;
            if (sent.title == name + u" is Down"_s)
                return id;
        }
        return 0;
    }
    [[nodiscard]] bool showsPageOf(const QString &name)
    {
        return desktop.waitForItem(AccessibleRole::heading, name).has_value();
    }
    [[nodiscard]] bool hasWindow() { return desktop.windows.hasWindow(u"Ostrel"_s); }
    [[nodiscard]] bool closeWindow()
    {
        return desktop.windows.closeWindow(u"Ostrel"_s) && waitFor([this] { return !hasWindow(); });
    }

    const QByteArray closed = "http://127.0.0.1:" + QByteArray::number(closedPort()) + '/';
    const Monitor blog = webMonitor(u"Blog"_s, closed);
    const Monitor shop = webMonitor(u"Shop"_s, closed + "shop");
    OstrelDesktop desktop;
    std::unique_ptr<StubNotificationDaemon> daemon;
};

} // namespace

TEST_F(NotificationClickTest, OpensTheWindowWithThePageOfItsMonitor)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    EXPECT_EQ(daemon->notifications().first().actions.value(0), u"default"_s);
    daemon->click(idOf(u"Shop"_s));
    EXPECT_TRUE(showsPageOf(u"Shop"_s));

    ASSERT_TRUE(closeWindow());
    daemon->click(idOf(u"Blog"_s));
    EXPECT_TRUE(waitFor([this] { return hasWindow(); }));
    EXPECT_TRUE(showsPageOf(u"Blog"_s));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(NotificationClickTest, OpensTheWindowAloneIfTheMonitorWasDeleted)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    const uint id = idOf(u"Blog"_s);
    ASSERT_TRUE(desktop.user.press("Down"));
    ASSERT_TRUE(showsPageOf(u"Blog"_s));
    ASSERT_TRUE(desktop.user.press("Delete"));
    ASSERT_TRUE(desktop.waitUntilGone(AccessibleRole::heading, u"Blog"_s));
    ASSERT_TRUE(desktop.user.press("Escape"));
    ASSERT_TRUE(desktop.waitForItem(AccessibleRole::list, u"Dashboard"_s));
    ASSERT_TRUE(closeWindow());

    daemon->click(id);
    EXPECT_TRUE(waitFor([this] { return hasWindow(); }));
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::list, u"Dashboard"_s));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(NotificationClickTest, IsIgnoredIfTheNotificationIsOfAnotherProgram)
{
    ASSERT_NO_FATAL_FAILURE(startWatching());
    const uint ours = idOf(u"Shop"_s);
    ASSERT_TRUE(closeWindow());
    daemon->click(ours + 5);
    startDaemon(); // It forgets its notifications, and may give their ids to others.
    daemon->click(ours);

    // The window comes as it was.
    EXPECT_EQ(desktop.program.run({}).exitCode, 0);
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::list, u"Dashboard"_s));
    EXPECT_EQ(desktop.program.stop(), 0);
}

} // namespace ostrel::test
