#include "AppActions.h"
#include "DashboardOverview.h"
#include "EngineFakes.h"
#include "MonitorListModel.h"
#include "MonitoringEngine.h"
#include "NotificationManager.h"
#include "PresentationSamples.h"
#include "Printers.h"
#include "WaitFor.h"
#include "WakeSignal.h"

#include <QAccessible>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

/// The whole window over a store that the test fills.
class ContentViewTest : public testing::Test
{
protected:
    ContentViewTest() { qputenv("XDG_CONFIG_HOME", m_config.path().toUtf8()); }

    void show()
    {
        m_views.addImportPath(QStringLiteral("qrc:/qt/qml"));
        m_views.setInitialProperties({
            {QStringLiteral("monitors"), QVariant::fromValue(&m_model)},
            {QStringLiteral("overview"), QVariant::fromValue(&m_overview)},
            {QStringLiteral("actions"), QVariant::fromValue(&m_actions)},
        });
        m_views.load(QUrl(QStringLiteral("qrc:/qt/qml/Ostrel/MainWindow.qml")));
        window = qobject_cast<QQuickWindow *>(m_views.rootObjects().value(0));
        ASSERT_TRUE(window);
        window->show();
        window->requestActivate();
        ASSERT_TRUE(waitFor([&] { return window->isExposed() && window->isActive(); }));
        window->grabWindow();
    }

    [[nodiscard]] static QQuickItem *find(QQuickItem *parent, const QString &name)
    {
        for (QQuickItem *child : parent->childItems()) {
            if (child->objectName() == name)
                return child;
            if (QQuickItem *item = find(child, name))
                return item;
        }
        return nullptr;
    }
    [[nodiscard]] QQuickItem *item(const char *name) const
    {
        return find(window->contentItem(), QString::fromLatin1(name));
    }
    [[nodiscard]] QString textOf(const char *name) const
    {
        const QQuickItem *found = item(name);
        return found ? found->property("text").toString() : QStringLiteral("(none)");
    }
    [[nodiscard]] QQuickItem *row(int index) const
    {
        QQuickItem *found = nullptr;
        QMetaObject::invokeMethod(item("list"), "itemAtIndex", Q_RETURN_ARG(QQuickItem *, found),
                                  Q_ARG(int, index));
        return found;
    }
    [[nodiscard]] QPoint middleOf(const QQuickItem &target) const
    {
        return target.mapToScene(target.boundingRect().center()).toPoint();
    }
    void click(const QQuickItem &target, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(window, Qt::LeftButton, modifiers, middleOf(target));
    }
    void press(Qt::Key key) { QTest::keyClick(window, key); }
    [[nodiscard]] bool showsDashboard() const { return item("dashboard")->isVisible(); }

    SampleStore samples;

private:
    QTemporaryDir m_config;
    ScriptedCheck m_check;
    RecordingNotificationCenter m_center;
    NotificationManager m_notifications{m_center};
    WakeSignal m_wakeSignal;
    ManualSleeper m_sleeper;
    MonitoringEngine m_engine{
        {samples.store, m_check, m_check, m_notifications, m_wakeSignal, m_sleeper}};
    MonitorListModel m_model{samples.store};
    DashboardOverview m_overview{samples.store};
    AppActions m_actions{samples.store, m_engine};
    QQmlApplicationEngine m_views;

protected:
    QQuickWindow *window = nullptr;
};

Monitor paused(Monitor monitor)
{
    monitor.isEnabled = false;
    return monitor;
}

} // namespace

TEST_F(ContentViewTest, WithoutMonitorsTheInvitationIsShownAndNoBanner)
{
    show();
    EXPECT_TRUE(item("empty")->isVisible());
    EXPECT_FALSE(item("grid")->isVisible());
    samples.add(sampleMonitor());
    EXPECT_FALSE(item("empty")->isVisible());
    EXPECT_FALSE(showsDashboard()) << "the first monitor's page opens";
}

TEST_F(ContentViewTest, TheBannerFollowsTheStore)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, {upCheck(shop, sampleNow())});
    const Monitor still = sampleMonitor();
    samples.add(paused(still), {downCheck(still, sampleNow())});
    show();
    EXPECT_EQ(item("banner")->mapToScene({}).y(), 24);
    EXPECT_EQ(textOf("headline"), QStringLiteral("All Systems Operational"));
    EXPECT_EQ(textOf("countLine"), QStringLiteral("1 of 2 monitors up"));
    samples.store.addCheck(downCheck(shop, sampleNow()));
    EXPECT_EQ(textOf("headline"), QStringLiteral("Issues Detected"));
    EXPECT_EQ(textOf("countLine"), QStringLiteral("0 of 2 monitors up"));
}

TEST_F(ContentViewTest, ACardWhoseLatestCheckIsDownShowsNoResponseTime)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, {upCheck(shop, sampleNow()), downCheck(shop, sampleNow())});
    show();
    EXPECT_FALSE(find(item("card"), QStringLiteral("time"))->isVisible());
    EXPECT_EQ(find(item("card"), QStringLiteral("uptime"))->property("text").toString(),
              QStringLiteral("50.0%"));
}

TEST_F(ContentViewTest, AMonitorNeverCheckedShowsARingAndFullUptime)
{
    samples.add(sampleMonitor());
    show();
    EXPECT_TRUE(find(row(0), QStringLiteral("ring"))->isVisible());
    EXPECT_FALSE(find(row(0), QStringLiteral("result"))->isVisible());
    EXPECT_EQ(find(row(0), QStringLiteral("uptime"))->property("text").toString(),
              QStringLiteral("100%"));
}

TEST_F(ContentViewTest, ADownMonitorShowsDownAndItsUptimeUnlessItIsPaused)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, {upCheck(shop, sampleNow()), downCheck(shop, sampleNow())});
    show();
    const auto result = [&] {
        return find(row(0), QStringLiteral("result"))->property("text").toString();
    };
    EXPECT_EQ(result(), QStringLiteral("DOWN"));
    EXPECT_EQ(find(row(0), QStringLiteral("uptime"))->property("text").toString(),
              QStringLiteral("50.0%"));
    samples.store.updateMonitor(paused(shop));
    EXPECT_NE(result(), QStringLiteral("DOWN"));
}

TEST_F(ContentViewTest, ARowReadsAsOneListItem)
{
    const Monitor shop = sampleMonitor();
    samples.add(shop, {upCheck(shop, sampleNow())});
    show();
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(row(0));
    ASSERT_TRUE(spoken);
    EXPECT_EQ(spoken->role(), QAccessible::ListItem);
    EXPECT_EQ(spoken->text(QAccessible::Name),
              QStringLiteral("Shop, up, 245 ms, 24-hour uptime 100%"));
    EXPECT_EQ(spoken->childCount(), 0);
}

TEST_F(ContentViewTest, ArrowsWalkTheListAndEscapeLeavesIt)
{
    samples.add(sampleMonitor(QStringLiteral("First")));
    samples.add(sampleMonitor(QStringLiteral("Second")));
    show();
    press(Qt::Key_Down);
    EXPECT_EQ(textOf("pageName"), QStringLiteral("First"));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(textOf("pageName"), QStringLiteral("Second"));
    press(Qt::Key_Home);
    EXPECT_EQ(textOf("pageName"), QStringLiteral("First"));
    press(Qt::Key_Escape);
    EXPECT_TRUE(showsDashboard());
}

TEST_F(ContentViewTest, ClicksSelectAndDeselect)
{
    samples.add(sampleMonitor(QStringLiteral("First")));
    show();
    for (const char *elsewhere : {"home", "emptySpace"}) {
        click(*row(0));
        EXPECT_EQ(textOf("pageName"), QStringLiteral("First"));
        click(*item(elsewhere));
        EXPECT_TRUE(showsDashboard()) << elsewhere;
    }
    click(*row(0));
    click(*row(0), Qt::ControlModifier);
    EXPECT_TRUE(showsDashboard());
    click(*item("card"));
    EXPECT_EQ(textOf("pageName"), QStringLiteral("First"));
}

TEST_F(ContentViewTest, TheMenuPausesAndDeletesFromTheKeyboard)
{
    const Monitor first = samples.add(sampleMonitor(QStringLiteral("First")));
    const Monitor second = samples.add(sampleMonitor(QStringLiteral("Second")));
    show();
    press(Qt::Key_Down);
    press(Qt::Key_Menu);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_FALSE(samples.store.monitor(first.id)->isEnabled);

    QTest::keyClick(window, Qt::Key_F10, Qt::ShiftModifier);
    for (int entry = 0; entry < 3; ++entry)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_FALSE(samples.store.monitor(first.id));
    EXPECT_EQ(textOf("pageName"), QStringLiteral("Second")) << "the first that remains";
}

} // namespace ostrel::test
