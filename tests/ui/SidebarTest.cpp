#include "StoredPreferences.h"
#include "WindowTest.h"

#include <QPointer>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class SidebarTest : public WindowTest
{
protected:
    /// The position of the line between the columns.
    [[nodiscard]] qreal edge() const { return item("sidebar")->width() + 1; }
    void pressGrip(int x)
    {
        m_pressed = item("grip")->mapToScene(QPointF(x, 100)).toPoint();
        QTest::mousePress(window, Qt::LeftButton, {}, m_pressed);
    }
    void dragBy(int distance) { QTest::mouseMove(window, m_pressed + QPoint(distance, 0)); }
    void releaseAt(int distance)
    {
        QTest::mouseRelease(window, Qt::LeftButton, {}, m_pressed + QPoint(distance, 0));
    }

private:
    QPoint m_pressed;
};

} // namespace

TEST_F(SidebarTest, ItsEdgeStaysUnderThePointerThatDragsIt)
{
    show();
    for (const int place : {0, 1, 3, 5, 6}) {
        const qreal before = edge();
        pressGrip(place);
        EXPECT_EQ(edge(), before) << place;
        for (const int distance : {1, 2, 15, -4}) {
            dragBy(distance);
            EXPECT_EQ(edge(), before + distance) << place;
        }
        dragBy(0);
        releaseAt(0);
        EXPECT_EQ(edge(), before) << place;
    }
}

TEST_F(SidebarTest, ItsEdgeIsUnderThePointerAgainAfterADragTooFar)
{
    show();
    pressGrip(1);
    dragBy(-150);
    EXPECT_EQ(edge(), 260);
    dragBy(7);
    EXPECT_EQ(edge(), 297);
    releaseAt(7);
}

TEST_F(SidebarTest, ItsEdgeIsOnAWholePixel)
{
    StoredPreferences().setValue(u"sidebarWidth"_s, 300.6);
    show();
    EXPECT_EQ(edge(), 301);
}

TEST_F(SidebarTest, ARowThatFadesOutLooksNeitherSelectedNorPointedAt)
{
    const Monitor first = samples.add(sampleMonitor());
    show();
    const QPointer<QQuickItem> leaving = row(0);
    ASSERT_TRUE(leaving);
    QTest::mouseMove(window, middleOf(*leaving));
    ASSERT_TRUE(waitFor([&] { return leaving->property("showsHover").toBool(); }));

    samples.store.deleteMonitor(first.id);
    ASSERT_TRUE(waitFor([&] { return !leaving || leaving->opacity() < 1; }));
    ASSERT_TRUE(leaving);
    EXPECT_FALSE(leaving->property("isSelected").toBool());
    EXPECT_EQ(leaving->property("wash").value<QColor>().alpha(), 0);
}

TEST_F(SidebarTest, ARowThatFadesOutTakesNoPresses)
{
    const Monitor first = samples.add(sampleMonitor());
    show();
    const QPointer<QQuickItem> leaving = row(0);
    ASSERT_TRUE(leaving);
    const QSignalSpy chosen(leaving, SIGNAL(chosen()));
    const QSignalSpy menus(leaving, SIGNAL(menuRequested(qreal, qreal)));
    const QPoint middle = middleOf(*leaving);
    samples.store.deleteMonitor(first.id);
    ASSERT_TRUE(waitFor([&] { return !leaving || leaving->opacity() < 1; }));
    ASSERT_TRUE(leaving);
    QTest::mouseClick(window, Qt::LeftButton, {}, middle);
    QTest::mouseClick(window, Qt::RightButton, {}, middle);
    EXPECT_EQ(chosen.size(), 0);
    EXPECT_EQ(menus.size(), 0);
}

} // namespace ostrel::test
