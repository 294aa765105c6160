import QtQuick

import Ostrel.Theme

// One choice of a segmented picker.
ChoiceButton {
    id: root

    horizontalPadding: Theme.segmentPadding
    implicitHeight: Theme.segmentHeight - 2 * Theme.segmentInset
    radius: Theme.segmentRadius
    activeFocusOnTab: isSelected

    contentItem: ButtonLabel {
        text: root.text
        font: root.isSelected ? Theme.demiBold11 : Theme.medium11
        color: root.isSelected || root.showsHover ? Theme.textPrimary : Theme.textSecondary
    }

    background: EdgedBox {
        radius: root.radius
        color: root.isSelected ? Theme.surface : Theme.none
        edge: root.isSelected ? Theme.segmentEdge : Theme.none
    }
}
