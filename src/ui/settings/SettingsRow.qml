import QtQuick

import Ostrel.Theme

// One row of a settings card: its contents are between the card's insets.
Item {
    id: root

    default property alias contents: body.data
    property bool hasDivider: false

    width: parent.width
    implicitHeight: 46

    Hairline {
        x: body.x
        width: body.width
        visible: root.hasDivider
    }

    Item {
        id: body

        x: Theme.cardPadding - Theme.hairlineWidth
        width: parent.width - 2 * x
        height: parent.height
    }
}
