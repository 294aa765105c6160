import QtQuick

import Ostrel.Theme

// The pending ring, and the application's icon.
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
