import QtQuick

import Ostrel.Theme

// A figure with its title, to be placed in a card.
Item {
    id: root

    readonly property font displayLarge: ThemeFonts.face(700, 32, 0)
    readonly property real statBarWidth: 28
    readonly property real statBarHeight: 3
    readonly property real statBarRadius: 1.5
    readonly property real statBarGap: 14
    readonly property real statValueGap: 6

    required property string title
    required property string value
    property string unit: ""
    required property color color
    // Smaller than the role's size only if the figures of one row need more space than they have.
    property real valueSize: root.displayLarge.pixelSize

    implicitWidth: Math.max(root.statBarWidth, titleText.implicitWidth, valueText.implicitWidth + (unit !== "" ? Theme.statUnitGap + unitText.implicitWidth : 0))
    implicitHeight: valueText.y + ThemeFonts.lineBox(root.displayLarge.pixelSize)
    Accessible.role: Accessible.StaticText
    Accessible.name: unit !== "" ? title + ", " + value + " " + unit : title + ", " + value

    EdgedBox {
        id: bar

        width: root.statBarWidth
        height: root.statBarHeight
        radius: root.statBarRadius
        color: Theme.faded(root.color, 0.5)
    }

    QuietText {
        id: titleText

        anchors.top: bar.bottom
        anchors.topMargin: root.statBarGap
        width: parent.width
        text: root.title
        font: ThemeFonts.face(500, 10, 0.3)
        color: Theme.textTertiary
    }

    QuietText {
        id: valueText

        objectName: "value"
        anchors.top: titleText.bottom
        anchors.topMargin: root.statValueGap
        text: root.value
        font: root.valueSize === root.displayLarge.pixelSize ? root.displayLarge : ThemeFonts.face(Font.Bold, root.valueSize, 0)
        color: root.color
    }

    QuietText {
        id: unitText

        objectName: "unit"
        anchors.left: valueText.right
        anchors.leftMargin: Theme.statUnitGap
        anchors.baseline: valueText.baseline
        visible: root.unit !== ""
        text: root.unit
        font: ThemeFonts.face(500, 14)
        color: Theme.textTertiary
    }
}
