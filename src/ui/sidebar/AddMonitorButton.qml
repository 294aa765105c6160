import QtQuick

import Ostrel.Theme

// The sidebar's button for a new monitor.
BaseButton {
    id: root

    readonly property color addHover: Qt.alpha(Theme.accent, 0.06)
    readonly property color addPressed: Qt.alpha(Theme.accent, 0.10)
    readonly property real addButtonGap: 8

    text: qsTr("Add Monitor")
    horizontalPadding: 10
    implicitHeight: 32

    contentItem: ButtonLabel {
        symbol: "plus"
        symbolSize: 11
        gap: root.addButtonGap
        text: root.text
        font: Theme.demiBold13
        color: Theme.accent
    }

    background: EdgedBox {
        radius: root.radius
        color: root.down ? root.addPressed : root.showsHover ? root.addHover : Theme.none
    }
}
