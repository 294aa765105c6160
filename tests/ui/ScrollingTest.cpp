#include "WindowTest.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QPointingDevice>
#include <QWheelEvent>

#include <algorithm>

namespace ostrel::test {

namespace {

class ScrollingTest : public WindowTest
{
protected:
    void addMany()
    {
        const Monitor first = sampleMonitor(u"Shop 1"_s);
        samples.add(first, upChecks(first, 25, sampleNow()));
        for (int number = 2; number <= 40; ++number)
            samples.add(sampleMonitor(u"Shop %1"_s.arg(number)));
    }
    void showDashboard()
    {
        addMany();
        show();
        page = item("grid");
    }
    void showPage()
    {
        addMany();
        show();
        press(Qt::Key_Down);
        page = item("detailPage");
    }
    void showSheet()
    {
        addMany();
        show();
        press(Qt::Key_Down);
        window->resize(820, 480);
        ASSERT_TRUE(waitFor([&] { return item("sidebar")->height() == 480; }));
        press(Qt::Key_E, Qt::ControlModifier);
        ASSERT_TRUE(waitFor([&] { return item("middle") && item("middle")->isVisible(); }));
        page = item("middle");
        // Once it has appeared, it shows its top; only then it can be scrolled.
        ASSERT_TRUE(waitFor([&] { return isOpaque() && page->isEnabled(); }));
        ASSERT_TRUE(waitFor([&] { return place() == top() && top() < 0; }));
    }
    [[nodiscard]] bool isOpaque() const
    {
        const QQuickItem *part = page;
        while (part && part->opacity() == 1)
            part = part->parentItem();
        return !part;
    }
    [[nodiscard]] qreal number(const char *property) const
    {
        return page->property(property).toReal();
    }
    [[nodiscard]] qreal place() const { return number("contentY"); }
    [[nodiscard]] qreal top() const { return number("originY") - number("topMargin"); }
    [[nodiscard]] qreal bottom() const
    {
        return number("originY") + number("contentHeight") + number("bottomMargin") -
               page->height();
    }
    void scrollTo(qreal y) { page->setProperty("contentY", y); }
    void focus(const char *name) { item(name)->forceActiveFocus(Qt::TabFocusReason); }

    [[nodiscard]] QQuickItem *field() const { return find(page, u"address"_s); }

    /// Drags the mouse up over @p target.
    void drag(const QQuickItem &target) { drag(middleOf(target), {0, -10}); }
    /// Drags the mouse in steps.
    void drag(QPoint start, QPoint step)
    {
        QTest::mousePress(window, Qt::LeftButton, {}, start);
        for (int count = 1; count <= 12; ++count)
            QTest::mouseMove(window, start + count * step);
        QTest::mouseRelease(window, Qt::LeftButton, {}, start + 12 * step);
    }
    void dragFinger(const QQuickItem &target)
    {
        static QPointingDevice *screen = QTest::createTouchDevice();
        const QPoint start = middleOf(target);
        QTest::touchEvent(window, screen).press(0, start, window);
        for (int distance = 10; distance <= 120; distance += 10)
            QTest::touchEvent(window, screen).move(0, start - QPoint(0, distance), window);
        QTest::touchEvent(window, screen).release(0, start - QPoint(0, 120), window);
    }
    void turnWheel(const QQuickItem &target)
    {
        const QPointF point = middleOf(target);
        QWheelEvent event(point, window->mapToGlobal(point), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        event.setTimestamp(static_cast<quint64>(QDeadlineTimer::current().deadline()));
        QCoreApplication::sendEvent(window, &event);
    }
    /// Expects that over @p target only a finger and the wheel scroll the page.
    void expectOnlyFingerAndWheelScroll(const QQuickItem &target)
    {
        const qreal before = place();
        drag(target);
        QTest::qWait(50);
        EXPECT_EQ(place(), before);
        turnWheel(target);
        EXPECT_TRUE(waitFor([&] { return place() > before; }, std::chrono::seconds(2)));
        scrollTo(before);
        dragFinger(target);
        EXPECT_TRUE(waitFor([&] { return place() > before; }, std::chrono::seconds(2)));
    }
    /// Leaves the window, and enters it again.
    void leaveAndEnter()
    {
        QWindow other;
        other.resize(100, 100);
        other.show();
        other.requestActivate();
        ASSERT_TRUE(waitFor([&] { return other.isActive() && !window->isActive(); }));
        window->requestActivate();
        ASSERT_TRUE(waitFor([&] { return window->isActive(); }));
        QTest::qWait(50);
    }

    QQuickItem *page = nullptr;
};

} // namespace

TEST_F(ScrollingTest, TheMouseDragsNoDashboard)
{
    showDashboard();
    expectOnlyFingerAndWheelScroll(*page);
    scrollTo(top());
    expectOnlyFingerAndWheelScroll(*item("banner"));
}

TEST_F(ScrollingTest, TheMouseDragsNoPage)
{
    showPage();
    expectOnlyFingerAndWheelScroll(*page);
}

TEST_F(ScrollingTest, TheMouseDragsNoList)
{
    addMany();
    show();
    page = item("list");
    expectOnlyFingerAndWheelScroll(*page);
}

TEST_F(ScrollingTest, TheMouseDragsNoForm)
{
    showSheet();
    expectOnlyFingerAndWheelScroll(*page);
}

TEST_F(ScrollingTest, TheMouseStillSelectsTextInAFieldOfTheForm)
{
    showSheet();
    drag(field()->mapToScene({15, field()->height() / 2}).toPoint(), {10, 1});
    EXPECT_FALSE(field()->property("selectedText").toString().isEmpty());
    EXPECT_EQ(place(), top());
}

TEST_F(ScrollingTest, TheMouseStillDragsTheScrollBar)
{
    showPage();
    const QPointF bar(page->width() - 5, 20);
    drag(page->mapToScene(bar).toPoint(), {0, 10});
    EXPECT_GT(place(), 0);
    QTest::mouseMove(window, {5, 5});
}

TEST_F(ScrollingTest, AWindowThatIsLeftAndEnteredKeepsThePagesPlace)
{
    showPage();
    focus("editMonitor");
    scrollTo(200);
    ASSERT_NO_FATAL_FAILURE(leaveAndEnter());
    EXPECT_EQ(place(), 200);
    EXPECT_EQ(window->activeFocusItem(), item("editMonitor"));
}

TEST_F(ScrollingTest, AWindowThatIsLeftAndEnteredKeepsTheDashboardsPlace)
{
    showDashboard();
    focus("grid");
    scrollTo(500);
    ASSERT_NO_FATAL_FAILURE(leaveAndEnter());
    EXPECT_EQ(place(), 500);
}

TEST_F(ScrollingTest, AWindowThatIsLeftAndEnteredKeepsTheFormsPlace)
{
    showSheet();
    field()->forceActiveFocus(Qt::TabFocusReason);
    scrollTo(bottom());
    ASSERT_NO_FATAL_FAILURE(leaveAndEnter());
    EXPECT_EQ(place(), bottom());
}

TEST_F(ScrollingTest, APageMovesOnlyIfItMustToShowWhatHasTheFocus)
{
    showPage();
    scrollTo(10);
    focus("editMonitor");
    EXPECT_EQ(place(), 10) << "it is visible";
    focus("addMonitor");
    scrollTo(300);
    focus("editMonitor");
    const QQuickItem *button = item("editMonitor");
    EXPECT_LT(place(), 300);
    EXPECT_GE(button->mapToItem(page, {}).y(), 0);
}

TEST_F(ScrollingTest, TheDashboardMovesToItsCurrentCardWhenItGetsTheKeys)
{
    showDashboard();
    focus("grid");
    focus("addMonitor");
    scrollTo(bottom());
    focus("grid");
    const QQuickItem *card = item("grid")->property("currentItem").value<QQuickItem *>();
    EXPECT_GE(card->mapToItem(page, {}).y(), 0);
    EXPECT_LE(card->mapToItem(page, QPointF(0, card->height())).y(), page->height());
}

TEST_F(ScrollingTest, TheListMovesToItsSelectedRowWhenItGetsTheKeys)
{
    addMany();
    show();
    page = item("list");
    press(Qt::Key_Down);
    focus("addMonitor");
    scrollTo(bottom());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(place(), top());
    press(Qt::Key_Tab);
    scrollTo(bottom());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(place(), top()) << "a second time, too";
}

TEST_F(ScrollingTest, AClickedRowDoesntMoveTheList)
{
    addMany();
    show();
    page = item("list");
    press(Qt::Key_Down);
    focus("addMonitor");
    scrollTo(row(0)->height() * 10);
    const qreal before = place();
    QTest::mouseClick(window, Qt::LeftButton, {}, middleOf(*page));
    EXPECT_NE(pageName(), u"Shop 1"_s);
    EXPECT_EQ(place(), before);
    scrollTo(bottom());
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(*page));
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return window->activeFocusItem() == page->parentItem(); }));
    EXPECT_EQ(place(), bottom());
}

TEST_F(ScrollingTest, AWindowThatIsLeftAndEnteredKeepsTheListsPlace)
{
    addMany();
    show();
    page = item("list");
    press(Qt::Key_Down);
    scrollTo(300);
    ASSERT_NO_FATAL_FAILURE(leaveAndEnter());
    EXPECT_EQ(place(), 300);
}

TEST_F(ScrollingTest, ThePageScrollsByKeysFromItsButtons)
{
    showPage();
    focus("editMonitor");
    const qreal line = [&] {
        press(Qt::Key_Down);
        return place();
    }();
    EXPECT_GT(line, 0);
    EXPECT_LT(line, page->height() / 2);
    press(Qt::Key_Down);
    EXPECT_EQ(place(), 2 * line);
    press(Qt::Key_Up);
    EXPECT_EQ(place(), line);
    press(Qt::Key_End);
    EXPECT_EQ(place(), bottom());
    const QQuickItem *rows = item("rows")->parentItem();
    EXPECT_LE(rows->mapToItem(page, QPointF(0, rows->height())).y(), page->height())
        << "the last check is visible";
    press(Qt::Key_Down);
    EXPECT_EQ(place(), bottom());
    press(Qt::Key_Home);
    EXPECT_EQ(place(), 0);
    press(Qt::Key_PageDown);
    EXPECT_EQ(place(), std::min(page->height(), bottom()));
    press(Qt::Key_PageUp);
    EXPECT_EQ(place(), 0);
}

TEST_F(ScrollingTest, AClickedPageScrollsByKeys)
{
    showPage();
    click(*item("strip"));
    EXPECT_EQ(window->activeFocusItem(), page);
    press(Qt::Key_Down);
    EXPECT_GT(place(), 0);
    EXPECT_EQ(pageName(), u"Shop 1"_s);
    press(Qt::Key_Escape);
    EXPECT_TRUE(showsDashboard());
}

TEST_F(ScrollingTest, TheListLeavesPageUpAndPageDownToThePage)
{
    showPage();
    press(Qt::Key_PageDown);
    EXPECT_GT(place(), 0);
    press(Qt::Key_PageUp);
    EXPECT_EQ(place(), 0);
}

TEST_F(ScrollingTest, TheDashboardScrollsByKeys)
{
    showDashboard();
    focus("grid");
    press(Qt::Key_End);
    EXPECT_EQ(place(), bottom());
    EXPECT_EQ(page->property("currentIndex").toInt(), 39);
    press(Qt::Key_Home);
    EXPECT_EQ(place(), top());
    EXPECT_EQ(page->property("currentIndex").toInt(), 0);
    press(Qt::Key_PageDown);
    EXPECT_EQ(place(), top() + page->height());
    press(Qt::Key_PageUp);
    EXPECT_EQ(place(), top());
}

TEST_F(ScrollingTest, ArrowsMoveAmongTheCardsAndAtTheFirstRowShowTheBanner)
{
    showDashboard();
    focus("grid");
    press(Qt::Key_Down);
    EXPECT_EQ(page->property("currentIndex").toInt(), 2);
    press(Qt::Key_Up);
    EXPECT_EQ(page->property("currentIndex").toInt(), 0);
    scrollTo(top() + 60);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(place(), top());
}

TEST_F(ScrollingTest, TheFormScrollsByKeys)
{
    showSheet();
    focus("cancel");
    press(Qt::Key_End);
    EXPECT_EQ(place(), bottom());
    press(Qt::Key_Up);
    EXPECT_LT(place(), bottom());
    EXPECT_GT(place(), top());
    press(Qt::Key_Home);
    EXPECT_EQ(place(), top());
    press(Qt::Key_PageDown);
    EXPECT_EQ(place(), std::min(top() + page->height(), bottom()));
    press(Qt::Key_PageUp);
    EXPECT_EQ(place(), top());
}

TEST_F(ScrollingTest, AFormThatGrowsTooLongStaysAtItsTop)
{
    samples.add(sampleMonitor());
    show();
    press(Qt::Key_Down);
    window->resize(820, 520);
    ASSERT_TRUE(waitFor([&] { return item("sidebar")->height() == 520; }));
    press(Qt::Key_E, Qt::ControlModifier);
    page = item("middle");
    const QQuickItem *sheet = page->parentItem()->parentItem();
    ASSERT_TRUE(waitFor([&] { return sheet->isVisible() && sheet->opacity() == 1; }));
    ASSERT_FALSE(page->property("isScrolling").toBool());
    click(*item("advanced"));
    ASSERT_TRUE(waitFor([&] { return page->property("isScrolling").toBool(); }));
    EXPECT_LT(top(), 0);
    EXPECT_TRUE(waitFor([&] { return place() == top(); }, std::chrono::seconds(2)));
}

TEST_F(ScrollingTest, AFieldOfTheFormKeepsItsOwnKeys)
{
    showSheet();
    field()->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_End);
    EXPECT_EQ(place(), top());
    EXPECT_EQ(field()->property("cursorPosition").toInt(),
              field()->property("text").toString().size());
}

} // namespace ostrel::test
