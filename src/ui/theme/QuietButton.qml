import QtQuick

// A button for a side matter.
BaseButton {
    id: root

    property string symbol: ""

    horizontalPadding: Theme.quietButtonPadding
    implicitHeight: Theme.quietButtonHeight

    contentItem: ButtonLabel {
        symbol: root.symbol
        text: root.text
        font: Theme.demiBold12
    }

    background: QuietBox {
        radius: root.radius
        isHovered: root.showsHover
        isPressed: root.down
    }
}
