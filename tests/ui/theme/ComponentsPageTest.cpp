#include "GalleryWindow.h"
#include "Printers.h"

#include <QAccessible>
#include <QQuickItem>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

void collect(QQuickItem *item, QList<QQuickItem *> &items)
{
    items += item;
    for (QQuickItem *child : item->childItems())
        collect(child, items);
}

/// The page's items that an assistive tool can put the focus on.
QList<QQuickItem *> focusableItems(QQuickItem *page)
{
    QList<QQuickItem *> items;
    collect(page, items);
    items.removeIf([](QQuickItem *item) {
        const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(item);
        return !item->activeFocusOnTab() && !(spoken && spoken->state().focusable);
    });
    return items;
}

} // namespace

TEST(ComponentsPageTest, EveryPageOpens)
{
    for (const QString &page : galleryPages()) {
        const GalleryWindow window(page);
        EXPECT_TRUE(window.isUsable()) << qPrintable(page);
    }
}

TEST(ComponentsPageTest, NoFocusableControlIsNameless)
{
    const GalleryWindow window(QStringLiteral("ComponentsPage"));
    ASSERT_TRUE(window.isUsable());
    const QList<QQuickItem *> items = focusableItems(window.rootObject());

    EXPECT_GT(items.size(), 30);
    for (QQuickItem *item : items) {
        const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(item);
        ASSERT_TRUE(spoken) << item->metaObject()->className();
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << item->metaObject()->className();
    }
}

} // namespace ostrel::test
