import QtQuick

// A button for a secondary action.
BaseButton {
    id: root

    property string symbol: ""

    horizontalPadding: 14
    implicitHeight: 28

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
