#include "NotificationDaemon.h"

#include "FreedesktopNotificationCenter.h"
#include "NotificationManager.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

void PrintTo(const ShownNotification &shown, std::ostream *out)
{
    *out << shown.id << " | urgency " << static_cast<int>(shown.urgency) << " | "
         << shown.title.toStdString() << " | " << shown.body.toStdString();
}

namespace {

using Bodies = NotificationDaemon::Bodies;
using Urgency = ShownNotification::Urgency;

Monitor shop()
{
    Monitor monitor;
    monitor.id = QUuid(u"0a1b2c3d-4e5f-6789-abcd-ef0123456789"_s);
    monitor.name = u"Shop <&>"_s;
    return monitor;
}

/// Tests the whole way from the manager to what a real daemon shows.
class NotificationDaemonTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_bus.isRunning());
        ASSERT_TRUE(m_display.isRunning());
        m_center.follow(m_connection);
    }
    [[nodiscard]] bool displays(int count)
    {
        return waitFor([&] { return m_daemon.displayedCount() == count; });
    }

    /// Waits until everything posted is shown. The daemon answers in order: before it answers a
    /// question, it has answered the notifications sent earlier. The center sends in at most three
    /// steps: the call for capabilities, the first notification of an identifier, and the newest of
    /// those added meanwhile.
    void settle()
    {
        for (int step = 0; step < 3; ++step)
            ASSERT_TRUE(askDaemon());
    }
    [[nodiscard]] bool askDaemon()
    {
        const QDBusPendingCallWatcher watcher(m_connection.asyncCall(QDBusMessage::createMethodCall(
            u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s,
            u"org.freedesktop.Notifications"_s, u"GetServerInformation"_s)));
        bool isAnswered = false;
        QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &watcher,
                         [&] { isAnswered = true; });
        return waitFor([&] { return isAnswered; });
    }

    PrivateBus m_bus;
    QDBusConnection m_connection = m_bus.connect();
    VirtualDisplay m_display;
    NotificationDaemon m_daemon{m_bus, m_display};
    FreedesktopNotificationCenter m_center;
    NotificationManager m_manager{m_center};
};

TEST_F(NotificationDaemonTest, ShowsADownMonitorUrgentlyAndItsRecoveryAsUsual)
{
    ASSERT_TRUE(m_daemon.start());
    m_manager.notifyDown(shop(), u"HTTP 503"_s);
    ASSERT_TRUE(displays(1));
    const auto down = m_daemon.closeAll();
    ASSERT_EQ(down.size(), 1);
    EXPECT_EQ(down.first().application, u"Ostrel"_s);
    EXPECT_EQ(down.first().urgency, Urgency::critical);
    EXPECT_EQ(down.first().title, u"Shop <&> is Down"_s);
    EXPECT_EQ(down.first().body, u"HTTP 503"_s);

    m_manager.notifyRecovery(shop(), Milliseconds(1234.56));
    ASSERT_TRUE(displays(1));
    const auto recovery = m_daemon.closeAll();
    ASSERT_EQ(recovery.size(), 2);
    EXPECT_EQ(recovery.first().urgency, Urgency::normal);
    EXPECT_EQ(recovery.first().title, u"Shop <&> is Back Up"_s);
    EXPECT_EQ(recovery.first().body, u"Responding in 1235ms"_s);
}

TEST_F(NotificationDaemonTest, ReplacesAnEarlierOneOfTheSameKindAndMonitor)
{
    ASSERT_TRUE(m_daemon.start());
    for (const int milliseconds : {1100, 1200, 1300})
        m_manager.notifySlow(shop(), Milliseconds(milliseconds), Milliseconds(1000));
    m_manager.notifyCertificateExpiring(shop(), 14);
    settle();
    m_manager.notifySlow(shop(), Milliseconds(1400), Milliseconds(1000));
    settle();
    ASSERT_TRUE(displays(2));
    const auto shown = m_daemon.closeAll();
    ASSERT_EQ(shown.size(), 2);
    QStringList bodies;
    for (const auto &notification : shown)
        bodies.append(notification.body);
    bodies.sort();
    EXPECT_EQ(bodies,
              QStringList({u"1400ms (threshold: 1000ms)"_s, u"Shop <&>: 14 days remaining"_s}));
}

TEST_F(NotificationDaemonTest, AClickTellsWhichMonitorItIsAbout)
{
    ASSERT_TRUE(m_daemon.start());
    QList<QUuid> clicks;
    m_center.onClick([&](const QUuid &monitorId, const QByteArray &) { clicks += monitorId; });
    m_manager.notifyDown(shop(), u"HTTP 503"_s);
    ASSERT_TRUE(displays(1));
    settle();
    m_daemon.click();
    EXPECT_TRUE(waitFor([&] { return clicks == QList<QUuid>{shop().id}; }));
}

TEST_F(NotificationDaemonTest, ShowsMarkupLiterally)
{
    ASSERT_TRUE(m_daemon.start());
    m_manager.notifyDown(shop(), u"<b>&"_s);
    ASSERT_TRUE(displays(1));
    EXPECT_EQ(m_daemon.closeAll().first().body, u"<b>&"_s);
}

TEST_F(NotificationDaemonTest, ShowsTextLiterallyWithoutMarkup)
{
    NotificationDaemon plain(m_bus, m_display, Bodies::plain);
    ASSERT_TRUE(plain.start());
    m_manager.notifyDown(shop(), u"<b>&amp;"_s);
    ASSERT_TRUE(waitFor([&] { return plain.displayedCount() == 1; }));
    EXPECT_EQ(plain.closeAll().first().body, u"<b>&amp;"_s);
}

TEST_F(NotificationDaemonTest, ContinuesWithADaemonThatWasRestarted)
{
    ASSERT_TRUE(m_daemon.start());
    m_manager.notifyDown(shop(), u"1"_s);
    ASSERT_TRUE(displays(1));
    m_daemon.stop();
    m_manager.notifyDown(shop(), u"lost"_s);
    ASSERT_TRUE(m_daemon.start());
    m_manager.notifyDown(shop(), u"2"_s);
    ASSERT_TRUE(displays(1));
    settle();
    m_manager.notifyDown(shop(), u"3"_s);
    settle();
    const auto shown = m_daemon.closeAll();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().body, u"3"_s);
}

TEST_F(NotificationDaemonTest, IsStartedByTheBusIfPossible)
{
    m_daemon.makeActivatable();
    m_manager.notifyDown(shop(), u"HTTP 503"_s);
    ASSERT_TRUE(displays(1));
    EXPECT_EQ(m_daemon.closeAll().first().body, u"HTTP 503"_s);
}

} // namespace
} // namespace ostrel::test
