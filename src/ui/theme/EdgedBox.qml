import QtQuick

import Ostrel.Theme

// A rounded box whose edge, if it has one, lies over its fill, inside its outline.
PaintedBox {
    id: root

    color: Theme.none
    edge: Theme.none
    edgeWidth: Theme.hairlineWidth

    Rectangle {
        anchors.fill: parent
        visible: !root.isNeeded
        radius: root.radius
        color: root.color
    }

    Rectangle {
        anchors.fill: parent
        visible: !root.isNeeded && root.edge.a > 0
        radius: root.radius
        color: Theme.none
        border.width: root.edgeWidth
        border.color: root.edge
    }
}
