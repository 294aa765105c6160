import QtQuick

import Ostrel.Theme

// A rounded box whose edge, if it has one, lies over its fill, inside its outline.
Item {
    id: root

    property color color: Theme.none
    property color edge: Theme.none
    property real edgeWidth: Theme.hairlineWidth
    property real radius: 0

    Rectangle {
        anchors.fill: parent
        visible: !painted.visible
        radius: root.radius
        color: root.color
    }

    Rectangle {
        anchors.fill: parent
        visible: !painted.visible && root.edge.a > 0
        radius: root.radius
        color: Theme.none
        border.width: root.edgeWidth
        border.color: root.edge
    }

    PaintedBox {
        id: painted

        anchors.fill: parent
        visible: isNeeded()
        color: root.color
        edge: root.edge
        edgeWidth: root.edgeWidth
        radius: root.radius
    }
}
