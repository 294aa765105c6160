#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelDesktop.h"
#include "Printers.h"
#include "Text.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

/// Who has nothing but a keyboard.
class KeyboardTest : public testing::Test
{
protected:
    void start()
    {
        shop.interval = Seconds(3600);
        desktop.program.writeMonitors({shop});
        ASSERT_TRUE(desktop.start());
        ASSERT_TRUE(desktop.waitForItem(AccessibleRole::label, text("1 of 1 monitors up")));
    }

    /// Where the keyboard is, in short: a row by its monitor's name.
    [[nodiscard]] QString place()
    {
        const auto focused = desktop.focusedItem();
        return focused ? focused->name.section(text(", "), 0, 0) : text("(nowhere)");
    }
    [[nodiscard]] bool comesTo(const QString &name)
    {
        return waitFor([&] { return place() == name; });
    }

    /// Presses @p key once for each of @p names, and expects to come to one after the other; each
    /// can be seen in its window.
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
    [[nodiscard]] QRect frame()
    {
        const auto window = itemNamed(desktop.items(), AccessibleRole::frame, text("Ostrel"));
        return window ? window->extents : QRect();
    }
    [[nodiscard]] double storedSidebarWidth() const
    {
        return desktop.program.preference("sidebarWidth").toDouble();
    }

    HostileServer server{answerWith("OK")};
    Monitor shop = webMonitor(text("Shop"), server.url());
    OstrelDesktop desktop;
};

} // namespace

TEST_F(KeyboardTest, TabGoesRoundTheWindowAsTheEyeDoes)
{
    ASSERT_NO_FATAL_FAILURE(start());
    expectWalk("Tab", {text("Add Monitor"), text("Settings"), text("Sidebar width"), text("Shop"),
                       text("Ostrel")});
    expectWalk("Down", {text("Shop")});
    const QStringList round = {text("Add Monitor"), text("Settings"),     text("Sidebar width"),
                               text("Check now"),   text("Edit monitor"), text("Get help"),
                               text("Shop")};
    expectWalk("Tab", round);
    QStringList back(round.rbegin(), round.rend());
    back.append(back.takeFirst());
    expectWalk("shift+Tab", back);
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, ThePageTurnsAndComesBackToWhatHasTheKeyboard)
{
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_NO_FATAL_FAILURE(expectWalk("Down", {text("Shop")}));
    ASSERT_TRUE(desktop.waitForItem(AccessibleRole::heading, text("Shop")));
    ASSERT_TRUE(desktop.user.press("Next"));
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::list, text("Recent Checks")));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::heading, text("Shop")));
    ASSERT_TRUE(desktop.user.press("Prior"));
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::heading, text("Shop")));

    ASSERT_TRUE(desktop.user.press("Next"));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::heading, text("Shop")));
    expectWalk("Tab",
               {text("Add Monitor"), text("Settings"), text("Sidebar width"), text("Check now")});
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, TheSheetKeepsTheKeyboardUntilItCloses)
{
    ASSERT_NO_FATAL_FAILURE(start());
    expectWalk("Tab", {text("Add Monitor"), text("Settings")});
    ASSERT_TRUE(desktop.user.press("ctrl+n"));
    ASSERT_TRUE(comesTo(text("Website address")));
    QStringList round = {text("30s"),
                         text("1m"),
                         text("5m"),
                         text("15m"),
                         text("30m"),
                         text("1h"),
                         text("CHECK FOR KEYWORD (OPTIONAL)"),
                         text("Keyword"),
                         text("ALERT IF SLOWER THAN (OPTIONAL)"),
                         text("Advanced"),
                         text("Cancel"),
                         text("Website"),
                         text("Port"),
                         text("Website address")};
    expectWalk("Tab", round);

    // What can't be saved isn't, and the sheet stays.
    ASSERT_TRUE(desktop.user.press("Return"));
    ASSERT_TRUE(desktop.user.type(text("a.example")));
    round.insert(round.indexOf(text("Cancel")) + 1, text("Start Monitoring"));
    expectWalk("Tab", round);

    ASSERT_TRUE(desktop.user.press("Escape"));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::dialog, text("New Monitor")));
    EXPECT_TRUE(comesTo(text("Settings"))) << "where it was";
    EXPECT_EQ(desktop.program.readMonitors()->size(), 1);
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, ThePickerClosesAloneAndReturnSaves)
{
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_NO_FATAL_FAILURE(expectWalk("Down", {text("Shop")}));
    ASSERT_TRUE(desktop.user.press("ctrl+e"));
    ASSERT_TRUE(comesTo(text("Website address")));
    const auto picker = desktop.waitForItem(AccessibleRole::comboBox, text("Keyword"));
    ASSERT_TRUE(picker);

    // Opened with the pointer, too, it takes the keys.
    ASSERT_TRUE(desktop.user.click(picker->extents.center()));
    ASSERT_TRUE(desktop.waitForItem(AccessibleRole::list, text("Keyword")));
    ASSERT_TRUE(desktop.user.press("Escape"));
    ASSERT_TRUE(desktop.waitUntilGone(AccessibleRole::list, text("Keyword")));
    EXPECT_TRUE(desktop.waitForItem(AccessibleRole::dialog, text("Edit Monitor")));
    EXPECT_TRUE(comesTo(text("Keyword")));

    ASSERT_TRUE(desktop.user.press({text("Down")}));
    EXPECT_TRUE(waitFor([&] { return picker->node.description() == text("Must not exist"); }));
    ASSERT_TRUE(desktop.user.press("Tab"));
    ASSERT_TRUE(comesTo(text("ALERT IF SLOWER THAN (OPTIONAL)")));
    ASSERT_TRUE(desktop.user.type(text("250")));
    ASSERT_TRUE(desktop.user.press("Return"));
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::dialog, text("Edit Monitor")));
    EXPECT_TRUE(waitFor([this] {
        const auto monitors = desktop.program.readMonitors();
        return monitors && !monitors->constFirst().keywordShouldExist &&
               monitors->constFirst().responseTimeThreshold == Milliseconds(250);
    }));
    EXPECT_TRUE(comesTo(text("Shop"))) << "where it was";
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, TheSplitMovesWithTheArrows)
{
    ASSERT_NO_FATAL_FAILURE(start());
    expectWalk("Down", {text("Shop")});
    expectWalk("Tab", {text("Add Monitor"), text("Settings"), text("Sidebar width")});
    const auto grip = desktop.waitForItem(AccessibleRole::splitPane, text("Sidebar width"));
    ASSERT_TRUE(grip);
    const int before = grip->extents.center().x();
    EXPECT_EQ(grip->description, text("290 pixels"));
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
        EXPECT_EQ(grip->node.description(), text("%1 pixels").arg(width)) << key;
    }
    EXPECT_EQ(place(), text("Sidebar width"));
    ASSERT_TRUE(grip->node.act(text("Decrease")));
    EXPECT_TRUE(waitFor([&] { return storedSidebarWidth() == 370; }));

    // Where the pointer drags it, it stays as well.
    const QPoint middle = grip->node.extents().center();
    ASSERT_TRUE(desktop.user.drag(middle, middle - QPoint(50, 0)));
    EXPECT_TRUE(waitFor([&] { return storedSidebarWidth() < 325; }));
    EXPECT_EQ(desktop.program.stop(), 0);
}

TEST_F(KeyboardTest, TheSettingsAreReachedSwitchedAndLeft)
{
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(desktop.user.press("ctrl+comma"));
    const QString sounds = text("Play Sounds on Status Change");
    ASSERT_TRUE(desktop.waitForItem(AccessibleRole::frame, text("Settings")));
    ASSERT_TRUE(waitFor([this] { return place() == text("(nowhere)"); }));
    for (const QString &name :
         {text("Launch at Login"), sounds, text("Open Notification Settings..."), text("Stored in"),
          text("Reveal in File Manager"), text("Launch at Login"), sounds}) {
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
    EXPECT_TRUE(desktop.waitUntilGone(AccessibleRole::frame, text("Settings")));
    EXPECT_EQ(desktop.program.stop(), 0);
}

} // namespace ostrel::test
