import QtQuick

import Ostrel.Theme

// The sidebar's way to a new monitor.
BaseButton {
    id: root

    text: qsTr("Add Monitor")
    horizontalPadding: Theme.addButtonPadding
    implicitHeight: Theme.addButtonHeight

    contentItem: ButtonLabel {
        symbol: "plus"
        symbolSize: 11
        gap: Theme.addButtonGap
        text: root.text
        font: Theme.demiBold13
        color: Theme.accent
    }

    background: EdgedBox {
        radius: root.radius
        color: root.down ? Theme.addPressed : root.showsHover ? Theme.addHover : Theme.none
    }
}
