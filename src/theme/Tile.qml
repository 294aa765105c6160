import QtQuick

// One of a few large choices, one of which is selected.
ChoiceButton {
    id: root

    readonly property real tileSymbolGap: 6

    property string symbol: ""

    horizontalPadding: 14
    implicitHeight: 32

    contentItem: ButtonLabel {
        symbol: root.symbol
        symbolSize: 11
        gap: root.tileSymbolGap
        text: root.text
        font: Theme.demiBold12
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
