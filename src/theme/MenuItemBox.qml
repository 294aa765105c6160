import QtQuick

import Ostrel.Theme

// The background of a menu's row that is hovered, selected with the keys or pressed.
EdgedBox {
    id: root

    readonly property color menuHover: Qt.alpha(Theme.accent, 0.08)
    readonly property color menuPressed: Qt.alpha(Theme.accent, 0.14)

    property bool isHighlighted: false
    property bool isPressed: false

    radius: 5
    color: isPressed ? root.menuPressed : isHighlighted ? root.menuHover : Theme.none
}
