#include "WindowTest.h"

#include <cmath>
#include <string>

namespace ostrel::test {

namespace {

bool isWhole(qreal length)
{
    constexpr qreal rounding = 1e-6;
    return std::abs(length - std::round(length)) < rounding;
}

/// A text's letters are put on whole pixels when they are drawn, wherever the text itself is.
bool isBox(const QQuickItem &part)
{
    return part.flags().testFlag(QQuickItem::ItemHasContents) && !part.inherits("QQuickText") &&
           !part.inherits("QQuickTextInput");
}

/// For example "CardStyle at 315.5, 616".
std::string described(const QQuickItem &part)
{
    const QPointF place = part.mapToScene(QPointF());
    return u"%1 in %2 at %3, %4"_s
        .arg(QLatin1String(part.metaObject()->className()),
             QLatin1String(part.parentItem()->metaObject()->className()))
        .arg(place.x())
        .arg(place.y())
        .toStdString();
}

void expectWhole(const QQuickItem &box)
{
    const QPointF place = box.mapToScene(QPointF());
    EXPECT_TRUE(isWhole(place.x()) && isWhole(place.y())) << described(box);
}

/// The window is as wide as the test's parameter.
class WholePixelsTest : public WindowTest, public testing::WithParamInterface<int>
{
protected:
    void showAll()
    {
        for (const QString &name : {u"Bank"_s, u"Shop"_s}) {
            const Monitor monitor = sampleMonitor(name);
            samples.add(monitor, upChecks(monitor, 25, sampleNow()));
        }
        showWide();
    }
    void showWide()
    {
        show();
        window->resize(GetParam(), 701);
        ASSERT_TRUE(waitFor([&] { return window->contentItem()->width() == GetParam(); }));
        window->grabWindow();
    }
    void expectSharpBoxes()
    {
        window->grabWindow();
        int boxes = 0;
        QList<QQuickItem *> open = {window->contentItem()};
        while (!open.isEmpty()) {
            const QQuickItem *part = open.takeLast();
            if (!part->isVisible())
                continue;
            open += part->childItems();
            if (!isBox(*part))
                continue;
            expectWhole(*part);
            ++boxes;
        }
        EXPECT_GT(boxes, 20);
    }
};

} // namespace

TEST_P(WholePixelsTest, HaveTheBoxesOfTheDashboard)
{
    showAll();
    expectSharpBoxes();
}

TEST_P(WholePixelsTest, HasTheButtonOfTheEmptyDashboard)
{
    showWide();
    expectWhole(*item("addFirstMonitor"));
}

TEST_P(WholePixelsTest, HaveTheBoxesOfAPage)
{
    showAll();
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    expectSharpBoxes();
}

TEST_P(WholePixelsTest, HaveTheBoxesOfTheSheetWhereverTheCaretIs)
{
    showAll();
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(waitFor([&] { return item("middle") && item("middle")->isVisible(); }));
    expectSharpBoxes();
    type("gar");
    expectSharpBoxes();
}

INSTANTIATE_TEST_SUITE_P(Widths, WholePixelsTest, testing::Values(961, 1023, 1201, 1301));

} // namespace ostrel::test
