import QtQuick

// One of a few large choices, of which one is taken.
ChoiceButton {
    id: root

    property string symbol: ""

    horizontalPadding: Theme.tilePadding
    implicitHeight: Theme.tileHeight

    contentItem: ButtonLabel {
        symbol: root.symbol
        symbolSize: 11
        gap: Theme.tileSymbolGap
        text: root.text
        font: Theme.demiBold12
        color: root.isSelected ? Theme.accentText : Theme.textPrimary
    }

    background: QuietBox {
        radius: root.radius
        isHovered: root.showsHover
        isPressed: root.down
        isSelected: root.isSelected
    }
}
