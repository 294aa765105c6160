#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelDesktop.h"
#include "Printers.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// A user who has only a keyboard.
class KeyboardTest : public testing::Test
{
protected:
    void start()
    {
        shop.interval = Seconds(3600);
        desktop.program.writeMonitors({shop});
        ASSERT_TRUE(desktop.start());
        ASSERT_TRUE(desktop.waitForItem(AccessibleRole::label, u"1 of 1 monitors up"_s));
    }

    /// The short name of the focused item: for a row, its monitor's name.
    [[nodiscard]] QString place()
    {
        const auto focused = desktop.focusedItem();
        return focused ? focused->name.section(u", "_s, 0, 0) : u"(nowhere)"_s;
    }
    [[nodiscard]] bool comesTo(const QString &name)
    {
        return waitFor([&] { return place() == name; });
    }

    /// Presses @p key once for each of @p names, and expects the focus to move to them in order;
    /// each is visible in its window.
    void expectWalk(const char *key, const QStringList &names)
    {
        const QRect window = frame();
        for (const QString &name : names) {
            ASSERT_TRUE(desktop.user.press(key));
            ASSERT_TRUE(comesTo(name))
                << name.toStdString() << " is expected, not " << place().toStdString();
            const auto focused = desktop.focusedItem();
            EXPECT_TRUE(focused->has(AccessibleState::showing)) << name.toStdString();
            EXPECT_TRUE(window.contains(focused->extents)) << name.toStdString();
        }
    }
    /// As the page shows it.
    [[nodiscard]] QString address() const { return shop.url.section(u'/', 2, 2); }
    [[nodiscard]] QRect frame()
    {
        const auto window = itemNamed(desktop.items(), AccessibleRole::frame, u"Ostrel"_s);
        return window ? window->extents : QRect();
    }
    [[nodiscard]] double storedSidebarWidth() const
    {
        return desktop.program.preference("sidebarWidth").toDouble();
    }

    HostileServer server{answerWith("OK")};
    Monitor shop = webMonitor(u"Shop"_s, server.url());
    OstrelDesktop desktop;
};

} // namespace

TEST_F(KeyboardTest, TabFollowsTheVisualOrderAroundTheWindow)
{
    ASSERT_NO_FATAL_FAILURE(start());
    expectWalk("Tab",
               {u"Add Monitor"_s, u"Settings"_s, u"Sidebar width"_s, u"Shop"_s, u"Ostrel"_s});
    expectWalk("Down", {u"Shop"_s});
    const QStringList round = {u"Add Monitor"_s, u"Settings"_s,     u"Sidebar width"_s, address(),
                               u"Check now"_s,   u"Edit monitor"_s, u"Get help"_s,      u"Shop"_s};
    expectWalk("Tab", round);
    QStringList back(round.rbegin(), round.rend());
    back.append(back.takeFirst());
    expectWalk("shift+Tab", back);
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, ThePageScrollsByKeysAndFollowsTheFocus)
{
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_NO_FATAL_FAILURE(expectWalk("Down", {u"Shop"_s}));
    ASSERT_TRUE(desktop.waitForItem(AccessibleRole::heading, u"Shop"_s));
    ASSERT_TRUE(desktop.user.press("Next"));
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::list, u"Recent Checks"_s));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::heading, u"Shop"_s));
    ASSERT_TRUE(desktop.user.press("Prior"));
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::heading, u"Shop"_s));

    ASSERT_TRUE(desktop.user.press("Next"));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::heading, u"Shop"_s));
    expectWalk("Tab", {u"Add Monitor"_s, u"Settings"_s, u"Sidebar width"_s, address()});
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, TheSheetKeepsTheFocusUntilItCloses)
{
    ASSERT_NO_FATAL_FAILURE(start());
    expectWalk("Tab", {u"Add Monitor"_s, u"Settings"_s});
    ASSERT_TRUE(desktop.user.press("ctrl+n"));
    ASSERT_TRUE(comesTo(u"Website address"_s));
    QStringList round = {u"5m"_s,       u"CHECK FOR KEYWORD (OPTIONAL)"_s,
                         u"Keyword"_s,  u"ALERT IF SLOWER THAN (OPTIONAL)"_s,
                         u"Advanced"_s, u"Cancel"_s,
                         u"Website"_s,  u"Website address"_s};
    expectWalk("Tab", round);

    // An invalid form isn't saved, and the sheet stays.
    ASSERT_TRUE(desktop.user.press("Return"));
    ASSERT_TRUE(desktop.user.type(u"a.example"_s));
    round.insert(round.indexOf(u"Cancel"_s) + 1, u"Start Monitoring"_s);
    expectWalk("Tab", round);

    // No form that is half filled in is lost or hidden.
    for (const char *shortcut : {"ctrl+comma", "ctrl+w", "ctrl+q"})
        ASSERT_TRUE(desktop.user.press(shortcut));
    expectWalk("Tab", {round.front()});
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::dialog, u"New Monitor"_s));
    const QList<AccessibleItem> shown = desktop.items();
    EXPECT_TRUE(std::ranges::none_of(shown, [](const AccessibleItem &item) {
        return item.role == AccessibleRole::frame && item.name == u"Settings"_s;
    }));

    ASSERT_TRUE(desktop.user.press("Escape"));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::dialog, u"New Monitor"_s));
    EXPECT_TRUE(comesTo(u"Settings"_s)) << "where it was";
    EXPECT_EQ(desktop.program.readMonitors()->size(), 1);
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, EscapeClosesOnlyThePickerAndReturnSaves)
{
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_NO_FATAL_FAILURE(expectWalk("Down", {u"Shop"_s}));
    ASSERT_TRUE(desktop.user.press("ctrl+e"));
    ASSERT_TRUE(comesTo(u"Website address"_s));
    const auto picker = desktop.waitForItem(AccessibleRole::comboBox, u"Keyword"_s);
    ASSERT_TRUE(picker);

    // If it is opened with the pointer, it takes the keys, too.
    ASSERT_TRUE(desktop.user.click(picker->extents.center()));
    ASSERT_TRUE(desktop.waitForItem(AccessibleRole::list, u"Keyword"_s));
    ASSERT_TRUE(desktop.user.press("Escape"));
    ASSERT_TRUE(desktop.waitUntilGone(AccessibleRole::list, u"Keyword"_s));
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::dialog, u"Edit Monitor"_s));
    EXPECT_TRUE(comesTo(u"Keyword"_s));

    ASSERT_TRUE(desktop.user.press({u"Down"_s}));
    EXPECT_TRUE(waitFor([&] { return picker->node.description() == u"Must not exist"_s; }));
    ASSERT_TRUE(desktop.user.press("Tab"));
    ASSERT_TRUE(comesTo(u"ALERT IF SLOWER THAN (OPTIONAL)"_s));
    ASSERT_TRUE(desktop.user.type(u"250"_s));
    ASSERT_TRUE(desktop.user.press("Return"));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::dialog, u"Edit Monitor"_s));
    EXPECT_TRUE(waitFor([this] {
        const auto monitors = desktop.program.readMonitors();
        return monitors && !monitors->constFirst().keywordShouldExist &&
               monitors->constFirst().responseTimeThreshold == Milliseconds(250);
    }));
    EXPECT_TRUE(comesTo(u"Shop"_s)) << "where it was";
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, TheSplitMovesWithTheArrows)
{
    ASSERT_NO_FATAL_FAILURE(start());
    expectWalk("Down", {u"Shop"_s});
    expectWalk("Tab", {u"Add Monitor"_s, u"Settings"_s, u"Sidebar width"_s});
    const auto grip = desktop.waitForItem(AccessibleRole::splitPane, u"Sidebar width"_s);
    ASSERT_TRUE(grip);
    const int before = grip->extents.center().x();
    EXPECT_EQ(grip->description, u"290 pixels"_s);
    const struct
    {
        const char *key;
        int width;
    } steps[] = {{"Right", 300}, {"Left", 290}, {"Left", 280}, {"Home", 260},
                 {"Left", 260},  {"End", 380},  {"Right", 380}};
    for (const auto &[key, width] : steps) {
        ASSERT_TRUE(desktop.user.press(key));
        EXPECT_TRUE(waitFor([&] { return storedSidebarWidth() == width; })) << key;
        EXPECT_TRUE(waitFor([&] {
            return grip->node.extents().center().x() == before + width - 290;
        })) << key;
        EXPECT_EQ(grip->node.description(), u"%1 pixels"_s.arg(width)) << key;
    }
    EXPECT_EQ(place(), u"Sidebar width"_s);
    ASSERT_TRUE(grip->node.act(u"Decrease"_s));
    EXPECT_TRUE(waitFor([&] { return storedSidebarWidth() == 370; }));

    // A position that the pointer drags it to is kept as well.
    const QPoint middle = grip->node.extents().center();
    ASSERT_TRUE(desktop.user.drag(middle, middle - QPoint(50, 0)));
    EXPECT_TRUE(waitFor([&] { return storedSidebarWidth() < 325; }));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, TheSettingsCanBeOpenedSwitchedAndClosed)
{
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(desktop.user.press("ctrl+comma"));
    const QString sounds = u"Play Sounds on Status Change"_s;
    ASSERT_TRUE(desktop.waitForItem(AccessibleRole::frame, u"Settings"_s));
    ASSERT_TRUE(waitFor([this] { return place() == u"(nowhere)"_s; }));
    for (const QString &name :
         {u"Launch at Login"_s, sounds, u"Open Notification Settings..."_s, u"Stored in"_s,
          u"Reveal in File Manager"_s, u"Launch at Login"_s, sounds}) {
        ASSERT_TRUE(desktop.user.press("Tab"));
        ASSERT_TRUE(comesTo(name))
            << name.toStdString() << " is expected, not " << place().toStdString();
    }
    ASSERT_TRUE(desktop.user.press("space"));
    EXPECT_TRUE(waitFor([&] {
        const auto item = itemNamed(desktop.items(), AccessibleRole::checkBox, sounds);
        return item && !item->has(AccessibleState::checked);
    }));
    ASSERT_TRUE(desktop.user.press("Escape"));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::frame, u"Settings"_s));
    EXPECT_EQ(desktop.program.stop(), 0);
}

} // namespace ostrel::test
