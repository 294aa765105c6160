#include "WindowTest.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QSignalSpy>

namespace ostrel::test {

namespace {

class KeyboardFocusTest : public WindowTest
{
protected:
    void addTwo()
    {
        first = samples.add(sampleMonitor(u"First"_s));
        second = samples.add(sampleMonitor(u"Second"_s));
    }
    void focus(const char *name) { item(name)->forceActiveFocus(Qt::TabFocusReason); }
    /// The item that the keys go to, if the user sees it and can reach it with the Tab key; null
    /// otherwise.
    [[nodiscard]] QQuickItem *seenFocus() const
    {
        QQuickItem *focused = window->activeFocusItem();
        return focused && focused->isVisible() && focused->activeFocusOnTab() ? focused : nullptr;
    }
    [[nodiscard]] bool isListFocused() const { return seenFocus() == monitorList(); }
    [[nodiscard]] bool comesToTheList()
    {
        return waitFor([this] { return isListFocused(); }, std::chrono::seconds(2));
    }
    [[nodiscard]] QQuickItem *monitorList() const { return item("list")->parentItem(); }
    [[nodiscard]] QWindow *settingsWindow() const
    {
        for (QWindow *candidate : QGuiApplication::topLevelWindows()) {
            if (candidate->title() == u"Settings"_s && candidate->isVisible())
                return candidate;
        }
        return nullptr;
    }
    void activate(QWindow &shown)
    {
        shown.requestActivate();
        ASSERT_TRUE(waitFor([&] { return shown.isActive(); }));
    }
    void closeSheet()
    {
        press(Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return sheetTitle().isEmpty(); }));
    }

    Monitor first;
    Monitor second;
};

} // namespace

TEST_F(KeyboardFocusTest, ItIsOnTheListAtFirst)
{
    show();
    EXPECT_TRUE(isListFocused());
}

TEST_F(KeyboardFocusTest, ACardChosenWithReturnGivesItToTheListAndEscapeLeadsBack)
{
    addTwo();
    show();
    focus("grid");
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    EXPECT_EQ(pageName(), u"Second"_s);
    EXPECT_TRUE(comesToTheList());
    EXPECT_TRUE(row(1)->property("showsFocus").toBool());
    press(Qt::Key_Escape);
    EXPECT_TRUE(showsDashboard());
    EXPECT_TRUE(seenFocus());
}

TEST_F(KeyboardFocusTest, TheFirstMonitorAddedFromTheEmptyPageHasIt)
{
    QGuiApplication::clipboard()->clear();
    show();
    focus("addFirstMonitor");
    press(Qt::Key_Return);
    type("shop.example");
    press(Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return sheetTitle().isEmpty(); }));
    EXPECT_TRUE(comesToTheList());
    EXPECT_EQ(pageName(), u"shop.example"_s);
}

TEST_F(KeyboardFocusTest, AMonitorThatAppearsOnTheEmptyPageHasIt)
{
    show();
    focus("addFirstMonitor");
    addTwo();
    EXPECT_TRUE(comesToTheList());
}

TEST_F(KeyboardFocusTest, ADeletedMonitorLeavesItOnTheList)
{
    addTwo();
    show();
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    EXPECT_TRUE(comesToTheList());
    press(Qt::Key_Menu);
    for (int entry = 0; entry < 3; ++entry)
        press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_TRUE(samples.store.monitors().empty());
    EXPECT_TRUE(comesToTheList());
}

TEST_F(KeyboardFocusTest, APageWhoseMonitorDisappearsGivesItToTheList)
{
    first = samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    focus("editMonitor");
    samples.store.deleteMonitor(first.id);
    EXPECT_TRUE(showsDashboard());
    EXPECT_TRUE(comesToTheList());
}

TEST_F(KeyboardFocusTest, ADashboardWhoseLastMonitorDisappearsGivesItToTheList)
{
    first = samples.add(sampleMonitor());
    show();
    focus("grid");
    samples.store.deleteMonitor(first.id);
    EXPECT_TRUE(comesToTheList());
}

TEST_F(KeyboardFocusTest, TheSheetReturnsItToWhereItWas)
{
    addTwo();
    show();
    press(Qt::Key_Down);
    for (const char *place : {"editMonitor", "addMonitor", "grip"}) {
        focus(place);
        press(Qt::Key_E, Qt::ControlModifier);
        ASSERT_EQ(sheetTitle(), u"Edit Monitor"_s) << place;
        closeSheet();
        EXPECT_TRUE(waitFor([&] { return seenFocus() == item(place); })) << place;
        EXPECT_TRUE(item(place)->property("visualFocus").toBool()) << place;
    }
}

TEST_F(KeyboardFocusTest, TheSheetLeavesItOnTheListIfItsMonitorDisappears)
{
    first = samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    focus("editMonitor");
    press(Qt::Key_Return);
    samples.store.deleteMonitor(first.id);
    ASSERT_NO_FATAL_FAILURE(closeSheet());
    EXPECT_TRUE(comesToTheList());
}

TEST_F(KeyboardFocusTest, TheSheetKeepsItWhileThePageUnderItDisappears)
{
    first = samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    focus("editMonitor");
    press(Qt::Key_Return);
    QQuickItem *field = window->activeFocusItem();
    samples.store.deleteMonitor(first.id);
    QTest::qWait(50);
    EXPECT_EQ(window->activeFocusItem(), field);
}

TEST_F(KeyboardFocusTest, TheSettingsReturnItToWhereItWas)
{
    addTwo();
    show();
    press(Qt::Key_Down);
    for (const char *place : {"editMonitor", "settings"}) {
        focus(place);
        press(Qt::Key_Comma, Qt::ControlModifier);
        QWindow *settings = settingsWindow();
        ASSERT_TRUE(settings);
        ASSERT_NO_FATAL_FAILURE(activate(*settings));
        QTest::keyClick(settings, Qt::Key_Escape);
        EXPECT_FALSE(settings->isVisible());
        ASSERT_NO_FATAL_FAILURE(activate(*window));
        EXPECT_EQ(seenFocus(), item(place));
        EXPECT_TRUE(item(place)->property("visualFocus").toBool()) << place;
    }
}

TEST_F(KeyboardFocusTest, AMonitorThatDisappearsUnderItsMenuLeavesItOnTheList)
{
    addTwo();
    show();
    press(Qt::Key_Down);
    press(Qt::Key_Menu);
    ASSERT_TRUE(row(0)->property("hasMenu").toBool());
    samples.store.deleteMonitor(first.id);
    EXPECT_TRUE(comesToTheList());
}

TEST_F(KeyboardFocusTest, ASuggestionTakenByAKeyLeavesItInTheSheet)
{
    QGuiApplication::clipboard()->setText(u"https://a.example/"_s);
    show();
    press(Qt::Key_N, Qt::ControlModifier);
    focus("suggestion");
    press(Qt::Key_Space);
    ASSERT_FALSE(item("suggestion")->isVisible());
    QTest::qWait(50);
    EXPECT_TRUE(seenFocus());
    EXPECT_FALSE(isListFocused());
    type("b");
    EXPECT_EQ(sheetTitle(), u"New Monitor"_s);
}

TEST_F(KeyboardFocusTest, ALineBetweenTheColumnsThatCantBeMovedAnyMoreGivesItToTheList)
{
    addTwo();
    show();
    focus("grip");
    window->resize(820, 600);
    EXPECT_TRUE(comesToTheList());
}

TEST_F(KeyboardFocusTest, AFocusGivenByThePointerIsNotMarkedWhenItReturns)
{
    addTwo();
    show();
    press(Qt::Key_Down);
    item("editMonitor")->forceActiveFocus(Qt::MouseFocusReason);
    press(Qt::Key_E, Qt::ControlModifier);
    ASSERT_NO_FATAL_FAILURE(closeSheet());
    ASSERT_TRUE(waitFor([&] { return seenFocus() == item("editMonitor"); }));
    EXPECT_FALSE(item("editMonitor")->property("visualFocus").toBool());
}

TEST_F(KeyboardFocusTest, AFocusGivenByTabAfterThePointerIsMarkedWhenItReturns)
{
    addTwo();
    show();
    press(Qt::Key_Down);
    item("editMonitor")->forceActiveFocus(Qt::MouseFocusReason);
    press(Qt::Key_Tab);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(seenFocus(), item("editMonitor"));
    press(Qt::Key_E, Qt::ControlModifier);
    ASSERT_NO_FATAL_FAILURE(closeSheet());
    ASSERT_TRUE(waitFor([&] { return seenFocus() == item("editMonitor"); }));
    EXPECT_TRUE(item("editMonitor")->property("visualFocus").toBool());
}

TEST_F(KeyboardFocusTest, APageThatDisappearsBehindTheSettingsGivesItToTheList)
{
    first = samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    focus("editMonitor");
    press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_NO_FATAL_FAILURE(activate(*settingsWindow()));
    samples.store.deleteMonitor(first.id);
    settingsWindow()->close();
    ASSERT_NO_FATAL_FAILURE(activate(*window));
    EXPECT_TRUE(comesToTheList());
}

TEST_F(KeyboardFocusTest, EscapeLeadsBackToTheDashboardAndTheListFromEverywhere)
{
    first = samples.add(sampleMonitor());
    show();
    for (const char *place :
         {"checkNow", "editMonitor", "getHelp", "addMonitor", "settings", "grip"}) {
        focus("grid");
        press(Qt::Key_Return);
        ASSERT_EQ(pageName(), first.name);
        focus(place);
        press(Qt::Key_Escape);
        EXPECT_TRUE(showsDashboard()) << place;
        EXPECT_TRUE(isListFocused()) << place;
    }
    focus("grid");
    press(Qt::Key_Escape);
    EXPECT_TRUE(isListFocused());
}

TEST_F(KeyboardFocusTest, CtrlQInTheSettingsQuitsUnlessTheSheetIsOpen)
{
    first = samples.add(sampleMonitor());
    show();
    const QSignalSpy quits(&views.engine(), &QQmlEngine::quit);
    press(Qt::Key_Comma, Qt::ControlModifier);
    QWindow *settings = settingsWindow();
    ASSERT_TRUE(settings);
    ASSERT_NO_FATAL_FAILURE(activate(*window));
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_NO_FATAL_FAILURE(activate(*settings));
    QTest::keyClick(settings, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quits.count(), 0) << "the form may be half filled in";

    ASSERT_NO_FATAL_FAILURE(activate(*window));
    ASSERT_NO_FATAL_FAILURE(closeSheet());
    ASSERT_NO_FATAL_FAILURE(activate(*settings));
    QTest::keyClick(settings, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quits.count(), 1);
}

TEST_F(KeyboardFocusTest, BehindTheSheetTheWindowsShortcutsWait)
{
    first = samples.add(sampleMonitor());
    show();
    const QSignalSpy quits(&views.engine(), &QQmlEngine::quit);
    press(Qt::Key_Down);
    press(Qt::Key_E, Qt::ControlModifier);
    const auto pressAll = [this] {
        for (const Qt::Key key : {Qt::Key_R, Qt::Key_Q, Qt::Key_Comma, Qt::Key_W})
            press(key, Qt::ControlModifier);
    };
    pressAll();
    EXPECT_EQ(sheetTitle(), u"Edit Monitor"_s);
    QElapsedTimer closing;
    closing.start();
    press(Qt::Key_Escape);
    pressAll();
    if (closing.hasExpired(100))
        GTEST_SKIP() << "the machine stood still while the sheet closed";
    ASSERT_EQ(sheetTitle(), u"Edit Monitor"_s) << "it is still closing";
    EXPECT_TRUE(samples.store.checks(first.id).empty());
    EXPECT_EQ(quits.count(), 0);
    EXPECT_FALSE(settingsWindow());
    EXPECT_TRUE(window->isVisible());

    ASSERT_TRUE(waitFor([&] { return sheetTitle().isEmpty(); }));
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([&] { return samples.store.checks(first.id).size() == 1; }));
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quits.count(), 1);
    press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_TRUE(settingsWindow());
    ASSERT_NO_FATAL_FAILURE(activate(*window));
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
}

} // namespace ostrel::test
