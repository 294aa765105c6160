import QtQuick
import QtQuick.Templates as T

// One entry of a context menu.
T.MenuItem {
    id: root

    readonly property real menuRowGap: 9

    property string symbol: ""
    property bool isDestructive: false
    property bool showsHover: highlighted
    readonly property color labelColor: isDestructive ? Theme.statusDown : Theme.textPrimary

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.menuRowHeight
    leftPadding: Theme.menuRowPadding
    rightPadding: Theme.menuRowPadding
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: text
    Accessible.onPressAction: clicked()

    contentItem: ButtonLabel {
        symbol: root.symbol
        gap: root.menuRowGap
        isCentred: false
        text: root.text
        color: root.labelColor
    }

    background: MenuItemBox {
        isHighlighted: root.showsHover
        isPressed: root.down
    }
}
