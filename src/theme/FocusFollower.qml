import QtQuick

import Ostrel.Theme

// Scrolls a page to the item in it that gets the focus. A focus that comes back from another window
// has moved nowhere, and neither does the page.
Item {
    id: root

    required property Flickable page
    // If the page itself has the focus, its keys go to this item, which may be null.
    property Item current: null
    // What stays visible above and below the item.
    property real margin: 0
    readonly property Item focused: Window.activeFocusItem
    // The last one, also while the window is left.
    property Item followed: null

    function holds(item: Item): bool {
        while (item && item !== page.contentItem)
            item = item.parent;
        return item !== null;
    }

    onFocusedChanged: {
        if (!focused || focused === followed)
            return;
        followed = focused;
        const item = focused === page ? current : focused;
        if (item && holds(item))
            place.reveal(item, margin);
    }

    PagePlace {
        id: place

        page: root.page
    }
}
