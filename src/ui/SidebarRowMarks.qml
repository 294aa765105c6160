import QtQuick

import Ostrel
import Ostrel.Theme

// Shows, over a row's box, that it is selected and that it has the keyboard.
Item {
    id: root

    readonly property real selectionBarWidth: 3
    readonly property real selectionBarHeight: 20
    readonly property real selectionBarRadius: 1.5
    readonly property real selectionBarOffset: 3

    required property SidebarRow row

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: -root.selectionBarOffset - width
        visible: root.row.isSelected
        width: root.selectionBarWidth
        height: root.selectionBarHeight
        radius: root.selectionBarRadius
        color: root.row.isWindowActive ? Theme.accent : Theme.statusMuted
    }

    FocusRing {
        visible: root.row.showsFocus
        isInside: true
    }
}
