import QtQuick

import Ostrel.Theme

// A fact about a monitor: symbol and text in the colour of its state.
Item {
    id: root

    readonly property real badgePaddingLeading: 8
    readonly property real badgePaddingTrailing: 10
    readonly property real badgeSymbolGap: 5

    required property string symbol
    required property string text
    required property color color

    implicitWidth: Math.ceil(root.badgePaddingLeading + picture.width + root.badgeSymbolGap + label.implicitWidth + root.badgePaddingTrailing)
    implicitHeight: 26

    EdgedBox {
        anchors.fill: parent
        radius: height / 2
        color: Theme.surface
        edge: Theme.faint(Theme.accent, 0.08)
    }

    Symbol {
        id: picture

        x: root.badgePaddingLeading
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbol
        systemSize: 11
        color: root.color
    }

    ThemeText {
        id: label

        anchors.left: picture.right
        anchors.leftMargin: root.badgeSymbolGap
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        font: Theme.medium11
        color: root.color
    }
}
