#include "SidebarNotice.h"

#include "EngineFakes.h"
#include "Tone.h"

#include <gtest/gtest.h>

namespace ostrel::test {
namespace {

TEST(SidebarNoticeTest, SaysThatTheNetworkIsAway)
{
    ScriptedPresence presence;
    const SidebarNotice notice(presence);
    int changes = 0;
    QObject::connect(&notice, &SidebarNotice::changed, [&] { ++changes; });
    EXPECT_FALSE(notice.isNeeded());

    presence.setPresent(false);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(notice.isNeeded());
    EXPECT_EQ(notice.text(), QStringLiteral("Offline. Checks wait for the network."));
    EXPECT_EQ(notice.symbol(), QStringLiteral("network"));
    EXPECT_EQ(notice.tone(), static_cast<int>(Tone::Secondary));

    presence.setPresent(true);
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(notice.isNeeded());
    EXPECT_EQ(notice.text(), QStringLiteral("Offline. Checks wait for the network."))
        << "while it disappears";
}

} // namespace
} // namespace ostrel::test
