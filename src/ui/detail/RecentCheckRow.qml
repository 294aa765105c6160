import QtQuick

import Ostrel
import Ostrel.Theme

// One check: its time and its result.
Item {
    id: root

    readonly property real checkTimeWidth: 68
    readonly property real checkCodeWidth: 32
    readonly property real checkDotGap: 10

    required property int index
    required property bool isUp
    required property int tone
    required property string timeText
    required property string codeText
    required property string resultText
    required property string spokenText

    implicitHeight: 26
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText

    Hairline {
        width: parent.width
        visible: root.index > 0
    }

    EdgedBox {
        id: dot

        anchors.verticalCenter: parent.verticalCenter
        width: Theme.dotSizeSmall
        height: Theme.dotSizeSmall
        radius: Theme.dotSizeSmall / 2
        color: ToneColors.of(root.tone)
    }

    QuietText {
        id: time

        anchors.left: dot.right
        anchors.leftMargin: root.checkDotGap
        anchors.verticalCenter: parent.verticalCenter
        width: root.checkTimeWidth
        text: root.timeText
        font: Theme.label
        color: Theme.textSecondary
    }

    QuietText {
        id: code

        anchors.left: time.right
        anchors.verticalCenter: parent.verticalCenter
        width: root.checkCodeWidth
        text: root.codeText
        font: Theme.label
        color: Theme.textSecondary
    }

    QuietText {
        id: result

        objectName: "result"
        anchors.left: code.right
        anchors.leftMargin: root.checkDotGap
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignRight
        text: root.resultText
        font: Theme.label
        color: root.isUp ? Theme.textPrimary : Theme.statusDown
    }
}
