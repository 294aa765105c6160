import QtQuick

import Ostrel.Theme

// A monitor's status as a word in capitals, with its symbol.
Item {
    id: root

    required property string symbol
    required property string text
    required property color color

    implicitWidth: Math.ceil(2 * Theme.statusPillPadding + picture.width + Theme.statusPillGap + label.implicitWidth)
    implicitHeight: 2 * Theme.statusPillVerticalPadding + Math.max(picture.height, label.implicitHeight)

    EdgedBox {
        anchors.fill: parent
        radius: height / 2
        color: Theme.faded(root.color, Theme.statusPillFillOpacity)
    }

    Symbol {
        id: picture

        objectName: "pillSymbol"
        x: Theme.statusPillPadding
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbol
        systemSize: 12
        color: root.color
    }

    ThemeText {
        id: label

        objectName: "pillText"
        anchors.left: picture.right
        anchors.leftMargin: Theme.statusPillGap
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        font: Theme.bold11
        color: root.color
    }
}
