import QtQuick

import Ostrel.Theme

// The symbol and the text of a button, side by side.
Item {
    id: root

    property string symbol: ""
    property string text: ""
    property font font: Theme.body
    property color color: Theme.textPrimary
    property real symbolSize: 12
    property real gap: Theme.controlGap
    property bool isCentred: true
    readonly property real symbolWidth: symbol !== "" ? picture.implicitWidth + gap : 0

    // Whole, so that the button's edges are as sharp as those of its neighbours in a line.
    implicitWidth: Math.ceil(symbolWidth + label.implicitWidth)
    implicitHeight: Math.max(label.implicitHeight, symbol !== "" ? picture.implicitHeight : 0)

    Symbol {
        id: picture

        x: root.isCentred ? Math.max(0, Theme.centred(root.width, root.implicitWidth)) : 0
        anchors.verticalCenter: parent.verticalCenter
        visible: root.symbol !== ""
        name: root.symbol
        color: root.color
        systemSize: root.symbolSize
    }

    QuietText {
        id: label

        x: picture.x + root.symbolWidth
        width: Math.min(implicitWidth, root.width - root.symbolWidth)
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        font: root.font
        color: root.color
    }
}
