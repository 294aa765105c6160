import QtQuick

// Shows a help text under its parent, which shows the keyboard focus of `control`. Once the pointer
// is on the control, the control's parts explain themselves.
Item {
    id: root

    required property Item control
    required property string text

    anchors.fill: parent

    // On the control itself: an item above it would keep the pointer from it.
    HoverHandler {
        id: pointer

        parent: root.control
    }

    HelpText {
        text: root.text
        visible: root.text !== "" && !pointer.hovered
    }
}
