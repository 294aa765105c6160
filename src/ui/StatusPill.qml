import QtQuick

import Ostrel.Theme

// A monitor's status as a word in capitals, with its symbol.
Item {
    id: root

    readonly property real statusPillPadding: 12
    readonly property real statusPillVerticalPadding: 6
    readonly property real statusPillGap: 6
    readonly property real statusPillFillOpacity: 0.10

    required property string symbol
    required property string text
    required property color color

    implicitWidth: Math.ceil(2 * root.statusPillPadding + picture.width + root.statusPillGap + label.implicitWidth)
    implicitHeight: 2 * root.statusPillVerticalPadding + Math.max(picture.height, label.implicitHeight)

    EdgedBox {
        anchors.fill: parent
        radius: height / 2
        color: Theme.faded(root.color, root.statusPillFillOpacity)
    }

    Symbol {
        id: picture

        objectName: "pillSymbol"
        x: root.statusPillPadding
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbol
        systemSize: 12
        color: root.color
    }

    ThemeText {
        id: label

        objectName: "pillText"
        anchors.left: picture.right
        anchors.leftMargin: root.statusPillGap
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        font: ThemeFonts.face(700, 11, 1.5)
        color: root.color
    }
}
