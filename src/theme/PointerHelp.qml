import QtQuick

// Shows a help text under its parent while the pointer rests on it.
Item {
    id: root

    required property string text
    required property bool isNeeded

    anchors.fill: parent

    HoverHandler {
        id: pointer
    }

    LateHelp {
        text: root.text
        isWanted: root.isNeeded && pointer.hovered
    }
}
