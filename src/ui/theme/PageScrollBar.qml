import QtQuick

import Ostrel.Theme

// The scroll bar at a page's right edge. Made when the page first scrolls, or the pointer first
// comes to where it stands: before that there is nothing of it to be seen.
Loader {
    id: root

    required property Flickable page
    readonly property real position: page.visibleArea.yPosition

    function make(): void {
        if (!item)
            setSource("ScrollIndicatorBar.qml", {
                page: root.page
            });
    }

    anchors.right: page.right
    anchors.top: page.top
    anchors.bottom: page.bottom
    width: Theme.scrollBarWidthHover + 2 * Theme.scrollBarMargin
    onPositionChanged: {
        // A page without contents isn't laid out yet.
        if (page.contentHeight > page.height)
            make();
    }

    HoverHandler {
        onHoveredChanged: root.make()
    }
}
