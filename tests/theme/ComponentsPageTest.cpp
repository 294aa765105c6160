#include "GalleryWindow.h"
#include "Printers.h"

#include <QAccessible>
#include <QQuickItem>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

void collect(QAccessibleInterface *spoken, QList<QAccessibleInterface *> &all)
{
    all += spoken;
    for (int i = 0; i < spoken->childCount(); ++i)
        collect(spoken->child(i), all);
}

/// Everything in the window that an assistive tool finds and can focus.
QList<QAccessibleInterface *> focusableThings(QWindow &window)
{
    QList<QAccessibleInterface *> all;
    collect(QAccessible::queryAccessibleInterface(&window), all);
    all.removeIf([](const QAccessibleInterface *spoken) { return !spoken->state().focusable; });
    return all;
}

} // namespace

TEST(ComponentsPageTest, NoFocusableControlIsNameless)
{
    GalleryWindow window(u"ComponentsPage"_s);
    ASSERT_TRUE(window.isUsable());
    window.show();
    const QList<QAccessibleInterface *> things = focusableThings(window);

    EXPECT_GT(things.size(), 30);
    for (const QAccessibleInterface *spoken : things)
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty())
            << spoken->object()->metaObject()->className() << ", role " << spoken->role();
}

} // namespace ostrel::test
