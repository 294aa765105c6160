import QtQuick

import Ostrel.Theme

// A card around what it holds.
Item {
    id: root

    default property alias contents: body.data
    property real padding: Theme.cardPadding
    property color fill: Theme.surface
    property color edge: Theme.hairline

    implicitWidth: body.childrenRect.width + 2 * padding
    implicitHeight: body.childrenRect.height + 2 * padding

    EdgedBox {
        anchors.fill: parent
        radius: Theme.cornerRadius
        color: root.fill
        edge: root.edge
    }

    Item {
        id: body

        anchors.fill: parent
        anchors.margins: root.padding
    }
}
