import QtQuick

import Ostrel
import Ostrel.Theme

// The line between the columns, which can be dragged or moved with the arrow keys.
KeyboardItem {
    id: root

    readonly property real columnGrip: 7
    readonly property real columnStep: 10

    required property SidebarWidth sidebarWidth

    implicitWidth: root.columnGrip
    // In a narrow window it can't be moved.
    enabled: !sidebarWidth.givesWay
    Accessible.role: Accessible.Splitter
    Accessible.name: qsTr("Sidebar width")
    Accessible.description: qsTr("%1 pixels").arg(sidebarWidth.width)
    Accessible.focusable: true
    Accessible.onDecreaseAction: sidebarWidth.drag(sidebarWidth.width - root.columnStep)
    Accessible.onIncreaseAction: sidebarWidth.drag(sidebarWidth.width + root.columnStep)
    Keys.onLeftPressed: sidebarWidth.drag(sidebarWidth.width - root.columnStep)
    Keys.onRightPressed: sidebarWidth.drag(sidebarWidth.width + root.columnStep)
    Keys.onPressed: event => {
        event.accepted = true;
        if (event.key === Qt.Key_Home)
            sidebarWidth.drag(sidebarWidth.minimum);
        else if (event.key === Qt.Key_End)
            sidebarWidth.drag(sidebarWidth.maximum);
        else
            event.accepted = false;
    }

    MouseArea {
        // How far the edge is from the pointer that drags it.
        property real reach: 0

        function pointed(mouse: MouseEvent): real {
            return mapToItem(null, mouse.x, 0).x; // In the window: the grip itself moves.
        }

        anchors.fill: parent
        cursorShape: Qt.SplitHCursor
        onPressed: mouse => reach = root.sidebarWidth.width - pointed(mouse)
        onPositionChanged: mouse => root.sidebarWidth.drag(pointed(mouse) + reach)
    }

    FocusRing {
        visible: root.visualFocus
        isInside: true
        controlRadius: root.columnGrip / 2
    }
}
