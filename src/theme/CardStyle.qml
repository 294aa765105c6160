import QtQuick

import Ostrel.Theme

// A card around its contents.
EdgedBox {
    id: root

    default property alias contents: body.data
    property real padding: Theme.cardPadding

    implicitWidth: body.childrenRect.width + 2 * padding
    implicitHeight: body.childrenRect.height + 2 * padding
    radius: Theme.cornerRadius
    color: Theme.surface
    edge: Theme.hairline

    Item {
        id: body

        anchors.fill: parent
        anchors.margins: root.padding
    }
}
