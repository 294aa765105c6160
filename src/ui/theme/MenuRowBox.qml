import QtQuick

import Ostrel.Theme

// One row of a menu under the pointer, the keys or the finger.
EdgedBox {
    id: root

    property bool isHighlighted: false
    property bool isPressed: false

    radius: Theme.menuRowRadius
    color: isPressed ? Theme.menuPressed : isHighlighted ? Theme.menuHover : Theme.none
}
