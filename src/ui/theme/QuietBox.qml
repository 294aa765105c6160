import QtQuick

import Ostrel.Theme

// The box of what can be pressed or chosen but doesn't ask for it.
EdgedBox {
    id: root

    property bool isHovered: false
    property bool isPressed: false
    property bool isSelected: false

    color: {
        if (isSelected)
            return Theme.accent;
        return isPressed ? Theme.quietPressed : isHovered ? Theme.quietHover : Theme.quietFill;
    }
    edge: isSelected ? Theme.none : Theme.quietEdge

    Behavior on color {
        ColorAnimation {
            duration: Theme.quickMotion
        }
    }
}
