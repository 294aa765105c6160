import QtQuick

import Ostrel.Theme

// One choice of a segmented picker.
ChoiceButton {
    id: root

    readonly property color segmentEdge: Theme.faint(Theme.accent, 0.08)

    horizontalPadding: 14
    implicitHeight: Theme.segmentHeight - 2 * Theme.segmentInset
    radius: 6
    activeFocusOnTab: isSelected

    contentItem: ButtonLabel {
        text: root.text
        font: root.isSelected ? Theme.demiBold11 : Theme.medium11
        color: root.isSelected || root.showsHover ? Theme.textPrimary : Theme.textSecondary
    }

    background: EdgedBox {
        radius: root.radius
        color: root.isSelected ? Theme.surface : Theme.none
        edge: root.isSelected ? root.segmentEdge : Theme.none
    }
}
