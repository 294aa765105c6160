import QtQuick

// The place of a page that scrolls: how far it can move, and moves it.
QtObject {
    id: root

    required property Flickable page
    readonly property real top: page.originY - page.topMargin
    readonly property real bottom: Math.max(top, page.originY + page.contentHeight + page.bottomMargin - page.height)

    function scrollTo(y: real): void {
        page.cancelFlick();
        page.contentY = Math.max(top, Math.min(y, bottom));
    }

    function scrollBy(distance: real): void {
        scrollTo(page.contentY + distance);
    }

    // Scrolls only as far as it must to show `item` of the page, and `margin` above and below it.
    function reveal(item: Item, margin: real): void {
        const itemTop = page.contentItem.mapFromItem(item, 0, 0).y;
        const highest = itemTop - margin;
        const lowest = itemTop + item.height + margin - page.height;
        if (page.contentY < lowest || page.contentY > highest)
            scrollTo(Math.min(Math.max(page.contentY, lowest), highest));
    }
}
