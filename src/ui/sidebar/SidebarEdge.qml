import QtQuick

import Ostrel
import Ostrel.Theme

// The line at the sidebar's right edge, which is also its grip.
Item {
    id: root

    required property SidebarWidth sidebarWidth

    width: Theme.hairlineWidth

    Hairline {
        height: parent.height
        color: Theme.faint(Theme.accent, 0.08)
    }

    SidebarGrip {
        objectName: "grip"
        anchors.horizontalCenter: parent.horizontalCenter
        height: parent.height
        sidebarWidth: root.sidebarWidth
    }
}
