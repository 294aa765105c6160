import QtQuick

import Ostrel.Theme

// A fact about a monitor: symbol and text in the colour of its state.
Item {
    id: root

    required property string symbol
    required property string text
    required property color color

    implicitWidth: Math.ceil(Theme.badgePaddingLeading + picture.width + Theme.badgeSymbolGap + label.implicitWidth + Theme.badgePaddingTrailing)
    implicitHeight: Theme.badgeHeight

    EdgedBox {
        anchors.fill: parent
        radius: height / 2
        color: Theme.surface
        edge: Theme.badgeEdge
    }

    Symbol {
        id: picture

        x: Theme.badgePaddingLeading
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbol
        systemSize: 11
        color: root.color
    }

    ThemeText {
        id: label

        anchors.left: picture.right
        anchors.leftMargin: Theme.badgeSymbolGap
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        font: Theme.medium11
        color: root.color
    }
}
