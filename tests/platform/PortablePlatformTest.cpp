#include "Platform.h"
#include "PortableLoginItem.h"
#include "PortableNetworkPresence.h"
#include "PortableNotificationCenter.h"
#include "PortableWakeSignal.h"
#include "PortableWorkspace.h"
#include "WaitFor.h"

#include <QDir>
#include <QList>
#include <QUrl>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

using namespace std::chrono_literals;

/// The wakes of a signal whose clock reads @p ticks in turn, one at the start and one per tick.
int wakesAfter(const std::vector<Timestamp::duration> &ticks)
{
    std::size_t read = 0;
    const auto clock = [&] { return Timestamp(ticks.at(std::min(read++, ticks.size() - 1))); };
    int wakes = 0;
    PortableWakeSignal signal(clock, 1ms);
    QObject::connect(&signal, &WakeSignal::didWake, [&] { ++wakes; });
    EXPECT_TRUE(waitFor([&] { return read > ticks.size(); }));
    return wakes;
}

TEST(PortableWakeSignalTest, IsSilentWhileTicksComeInTime)
{
    EXPECT_EQ(wakesAfter({0s, 1s, 2s, 3s}), 0);
}

TEST(PortableWakeSignalTest, IsSilentIfATickIsAsLateAsTheTolerance)
{
    EXPECT_EQ(wakesAfter({0ms, 30'001ms, 30'002ms}), 0);
}

TEST(PortableWakeSignalTest, SignalsOnceIfATickIsLaterThanTheTolerance)
{
    EXPECT_EQ(wakesAfter({0ms, 30'002ms, 30'003ms}), 1);
}

TEST(PortableWakeSignalTest, SignalsTheWakeFromEverySleep)
{
    EXPECT_EQ(wakesAfter({0s, 600s, 601s, 3600s}), 2);
}

TEST(PortableWakeSignalTest, IsSilentIfTheClockIsSetBack)
{
    EXPECT_EQ(wakesAfter({7200s, 3600s, 3601s}), 0);
}

TEST(PortableNotificationCenterTest, HandsEveryRequestToThePresenter)
{
    QList<NotificationRequest> shown;
    PortableNotificationCenter center([&](const auto &request) { shown.append(request); });
    const NotificationRequest request = {.identifier = u"down-1"_s,
                                         .title = u"Shop is Down"_s,
                                         .body = u"HTTP 503"_s,
                                         .level = InterruptionLevel::timeSensitive};
    center.requestAuthorization();
    center.add(request);
    EXPECT_EQ(shown, QList<NotificationRequest>{request});
}

TEST(PortableNotificationCenterTest, DropsEverythingWithoutAPresenter)
{
    PortableNotificationCenter center(nullptr);
    EXPECT_NO_THROW(center.add({}));
}

TEST(PortableNetworkPresenceTest, IsAlwaysThere)
{
    EXPECT_TRUE(PortableNetworkPresence().isPresent());
}

TEST(PortableLoginItemTest, IsRefused)
{
    PortableLoginItem item;
    EXPECT_FALSE(item.registerItem());
    EXPECT_FALSE(item.unregisterItem());
}

TEST(PortableWorkspaceTest, OpensNothing)
{
    PortableWorkspace workspace;
    EXPECT_FALSE(workspace.open(QUrl(u"https://shop.example"_s)).result());
    EXPECT_FALSE(workspace.openFolder(QDir::tempPath()));
    EXPECT_FALSE(workspace.openNotificationSettings());
}

TEST(PortableStatusBarHostTest, IsThereFromTheStart)
{
    const auto host = makeStatusBarHost();
    EXPECT_FALSE(host->isAwaited());
    EXPECT_FALSE(host->isSilent());
    EXPECT_FALSE(host->hasOurPalette());
}

TEST(PortablePlatformTest, EveryPortHasItsPortableImplementation)
{
    int shown = 0;
    makeNotificationCenter([&](const auto &) { ++shown; })->add({});
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(makeNetworkPresence()->isPresent());
    EXPECT_FALSE(makeLoginItem()->registerItem());
    EXPECT_FALSE(makeWorkspace()->openNotificationSettings());
    EXPECT_EQ(makeDesktopPreferences()->values(), DesktopPreferences::Values());
    EXPECT_TRUE(makeWakeSignal());
    EXPECT_TRUE(makeTerminationSignal());
}

TEST(PortablePlatformTest, TheContinuousTimeGoesOn)
{
    const ContinuousTime begin = continuousNow();
    EXPECT_TRUE(waitFor([&] { return continuousNow() > begin; }));
}

} // namespace
} // namespace ostrel::test
