import QtQuick

// A rounded box whose edge lies over its fill, inside its outline.
Rectangle {
    id: root

    property alias edge: stroke.border.color
    property alias edgeWidth: stroke.border.width

    Rectangle {
        id: stroke

        anchors.fill: parent
        radius: root.radius
        color: Theme.none
        border.width: Theme.hairlineWidth
        border.color: Theme.hairline
    }
}
