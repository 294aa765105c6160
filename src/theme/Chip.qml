import QtQuick

// One of several short choices, one of which is selected.
ChoiceButton {
    id: root

    horizontalPadding: 12
    implicitHeight: 26
    radius: height / 2

    contentItem: ButtonLabel {
        text: root.text
        font: Theme.demiBold11
        color: root.isSelected ? Theme.accentText : Theme.textPrimary

        Behavior on color {
            ColorMotion {}
        }
    }

    background: QuietBox {
        radius: root.radius
        isHovered: root.showsHover
        isPressed: root.down
        isSelected: root.isSelected
    }
}
