import QtQuick

import Ostrel.Theme

// A symbol to press; its help text is its name.
BaseButton {
    id: root

    required property string symbol
    property real symbolSize: 16

    implicitWidth: Theme.iconButtonSize
    implicitHeight: Theme.iconButtonSize

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            systemSize: root.symbolSize
            color: root.down || root.showsHover ? Theme.textPrimary : Theme.textSecondary
        }
    }

    background: EdgedBox {
        radius: root.radius
        color: root.down ? Theme.iconPressed : root.showsHover ? Theme.iconHover : Theme.none
    }
}
