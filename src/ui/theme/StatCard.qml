import QtQuick

import Ostrel.Theme

// A figure with its title; stands in a card.
Item {
    id: root

    required property string title
    required property string value
    property string unit: ""
    required property color color
    // Smaller than the role's size only where figures of one row share less room.
    property real valueSize: Theme.displayLarge.pixelSize

    implicitWidth: Math.max(Theme.statBarWidth, titleText.implicitWidth, valueText.implicitWidth + (unit !== "" ? Theme.statUnitGap + unitText.implicitWidth : 0))
    implicitHeight: valueText.y + ThemeFonts.lineBox(Theme.displayLarge.pixelSize)
    Accessible.role: Accessible.StaticText
    Accessible.name: unit !== "" ? title + ", " + value + " " + unit : title + ", " + value

    EdgedBox {
        id: bar

        width: Theme.statBarWidth
        height: Theme.statBarHeight
        radius: Theme.statBarRadius
        color: Theme.faded(root.color, 0.5)
    }

    QuietText {
        id: titleText

        anchors.top: bar.bottom
        anchors.topMargin: Theme.statBarGap
        width: parent.width
        text: root.title
        font: Theme.statTitle
        color: Theme.textTertiary
    }

    QuietText {
        id: valueText

        objectName: "value"
        anchors.top: titleText.bottom
        anchors.topMargin: Theme.statValueGap
        text: root.value
        font: root.valueSize === Theme.displayLarge.pixelSize ? Theme.displayLarge : ThemeFonts.face(Font.Bold, root.valueSize, 0)
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
        font: Theme.bodyMedium
        color: Theme.textTertiary
    }
}
