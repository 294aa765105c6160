import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// One choice of a picker's menu.
T.ItemDelegate {
    id: root

    readonly property real menuCheckWidth: 20

    required property bool isCurrent

    implicitHeight: Theme.menuRowHeight
    leftPadding: Theme.menuRowPadding
    rightPadding: Theme.menuRowPadding
    hoverEnabled: true
    Accessible.name: text
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.focused: highlighted
    Accessible.onPressAction: clicked()

    contentItem: Item {
        QuietText {
            width: parent.width - root.menuCheckWidth
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
        }

        Symbol {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            visible: root.isCurrent
            name: "checkmark"
            color: Theme.accent
        }
    }

    background: MenuItemBox {
        isHighlighted: root.highlighted || root.hovered
        isPressed: root.down
    }
}
