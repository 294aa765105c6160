#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelProgram.h"
#include "PrivateBus.h"
#include "SilentPanel.h"
#include "StatusNotifierHost.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

using namespace std::chrono_literals;

/// Half of the bus library's time-out, which must not be reached.
constexpr qint64 farTooLong = 12'000;

/// The program on buses that take every message and answer none.
class SilentBusTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(sessionBus.isRunning());
        ASSERT_TRUE(systemBus.isRunning());
        program.showOn(display);
        program.setEnvironment(u"DBUS_SESSION_BUS_ADDRESS"_s, sessionBus.address());
        program.setEnvironment(u"DBUS_SYSTEM_BUS_ADDRESS"_s, systemBus.address());
        program.setEnvironment(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
        program.writeMonitors({monitor});
        time.start();
    }

    [[nodiscard]] bool recordsChecks(std::size_t count) const
    {
        return waitFor([&] {
            const auto checks = program.readChecks();
            return checks && checks->value(monitor.id).size() >= count;
        });
    }

    HostileServer server{answerWith("OK")};
    Monitor monitor = webMonitor(u"Shop"_s, server.url());
    PrivateBus sessionBus;
    PrivateBus systemBus{PrivateBus::Kind::system};
    VirtualDisplay display;
    OstrelProgram program;
    QElapsedTimer time;
};

TEST_F(SilentBusTest, DelaysNeitherTheWindowNorTheChecksNorTheEnd)
{
    sessionBus.freeze();
    systemBus.freeze();
    ASSERT_TRUE(program.start());
    EXPECT_TRUE(recordsChecks(2));
    EXPECT_EQ(program.stop(), 0);
    EXPECT_LT(time.elapsed(), farTooLong);
}

TEST_F(SilentBusTest, DelaysNothingIfOneOfThemAnswers)
{
    for (PrivateBus *silent : {&sessionBus, &systemBus}) {
        silent->freeze();
        time.start();
        ASSERT_TRUE(program.start());
        EXPECT_TRUE(recordsChecks(1));
        EXPECT_EQ(program.stop(), 0);
        EXPECT_LT(time.elapsed(), farTooLong);
        silent->thaw();
    }
}

TEST_F(SilentBusTest, APanelThatHangsDelaysNothing)
{
    SilentPanel panel(sessionBus);
    ASSERT_TRUE(program.start());
    for (const std::size_t count : {10U, 20U, 30U})
        EXPECT_TRUE(recordsChecks(count)) << "beyond the time that a panel is waited for";
    EXPECT_GT(panel.callCount(), 0);
    EXPECT_EQ(program.stop(), 0);
    EXPECT_LT(time.elapsed(), 20'000) << "less than one time-out of the bus library";
}

TEST_F(SilentBusTest, DelaysNothingWhenItFallsSilentLater)
{
    StatusNotifierHost panel(sessionBus);
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([&] { return panel.hasItem(); }));
    sessionBus.freeze();
    systemBus.freeze();
    time.start();
    const auto before = program.readChecks().value_or(QHash<QUuid, std::vector<Check>>());
    EXPECT_TRUE(recordsChecks(before.value(monitor.id).size() + 2));
    EXPECT_EQ(program.stop(), 0);
    EXPECT_LT(time.elapsed(), farTooLong);
}

} // namespace
} // namespace ostrel::test
