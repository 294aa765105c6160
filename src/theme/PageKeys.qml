import QtQuick

import Ostrel.Theme

// Lets the keys scroll a page, if the item that has the focus leaves them. The `Keys` of what holds
// the page must forward to this item, or call take().
Item {
    id: root

    readonly property real line: 40

    required property Flickable page

    function take(event: KeyEvent): void {
        // The keypad's keys have a modifier of their own.
        const isPlain = (event.modifiers & ~Qt.KeypadModifier) === Qt.NoModifier;
        event.accepted = isPlain && scroll(event.key);
    }

    // False if the key scrolls nothing.
    function scroll(key: int): bool {
        if (key === Qt.Key_Up)
            place.scrollBy(-line);
        else if (key === Qt.Key_Down)
            place.scrollBy(line);
        else if (key === Qt.Key_PageUp)
            place.scrollBy(-page.height);
        else if (key === Qt.Key_PageDown)
            place.scrollBy(page.height);
        else if (key === Qt.Key_Home)
            place.scrollTo(place.top);
        else if (key === Qt.Key_End)
            place.scrollTo(place.bottom);
        else
            return false;
        return true;
    }

    Keys.onPressed: event => take(event)

    PagePlace {
        id: place

        page: root.page
    }
}
