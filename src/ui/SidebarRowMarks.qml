import QtQuick

import Ostrel
import Ostrel.Theme

// Shows, over a row's box, that it is selected and that it has the keyboard.
Item {
    id: root

    required property SidebarRow row

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: -Theme.selectionBarOffset - width
        visible: root.row.isSelected
        width: Theme.selectionBarWidth
        height: Theme.selectionBarHeight
        radius: Theme.selectionBarRadius
        color: root.row.isWindowActive ? Theme.accent : Theme.statusMuted
    }

    FocusRing {
        visible: root.row.showsFocus
        isInside: true
    }
}
