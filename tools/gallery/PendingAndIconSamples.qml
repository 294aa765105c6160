import QtQuick

import Ostrel.Theme

// What turns while it waits, and the application's icon.
GallerySection {
    title: "PENDING RING AND APP ICON"

    PendingRing {}

    AppIcon {
        size: Theme.rowIconSize
    }

    AppIcon {
        size: Theme.headerIconSize
    }
}
