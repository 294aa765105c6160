import QtQuick

// A rounded box whose edge lies over its fill, inside its outline.
Rectangle {
    id: root

    property color edge: Theme.hairline
    property real edgeWidth: Theme.hairlineWidth

    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: Theme.none
        border.width: root.edgeWidth
        border.color: root.edge
    }
}
