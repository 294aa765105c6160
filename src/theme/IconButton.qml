import QtQuick

import Ostrel.Theme

// A button with only a symbol; its help text is its name.
BaseButton {
    id: root

    readonly property color iconHover: Qt.alpha(Theme.ink, 0.06)
    readonly property color iconPressed: Qt.alpha(Theme.ink, 0.10)

    required property string symbol
    property real symbolSize: 16
    // Whether what the button begins is going on.
    property bool isBusy: false

    implicitWidth: Theme.iconButtonSize
    implicitHeight: Theme.iconButtonSize

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            visible: !root.isBusy
            name: root.symbol
            systemSize: root.symbolSize
            color: root.down || root.showsHover ? Theme.textPrimary : Theme.textSecondary
        }

        PendingRing {
            anchors.centerIn: parent
            visible: root.isBusy
        }
    }

    background: EdgedBox {
        radius: root.radius
        color: root.down ? root.iconPressed : root.showsHover ? root.iconHover : Theme.none
    }
}
