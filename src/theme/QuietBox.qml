import QtQuick

import Ostrel.Theme

// The background of unobtrusive controls.
EdgedBox {
    id: root

    readonly property color quietFill: Qt.alpha(Theme.ink, 0.03)
    readonly property color quietEdge: Theme.faint(Theme.ink, 0.08)
    readonly property color quietHover: Qt.alpha(Theme.ink, 0.06)
    readonly property color quietPressed: Qt.alpha(Theme.ink, 0.10)

    property bool isHovered: false
    property bool isPressed: false
    property bool isSelected: false

    color: {
        if (isSelected)
            return Theme.accent;
        return isPressed ? root.quietPressed : isHovered ? root.quietHover : root.quietFill;
    }
    edge: isSelected ? Theme.none : root.quietEdge

    Behavior on color {
        ColorMotion {}
    }

    Behavior on edge {
        ColorMotion {}
    }
}
