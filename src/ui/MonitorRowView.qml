import QtQuick

import Ostrel.Theme

Item {
    id: root

    required property string name
    required property string address
    required property string resultText
    required property string uptimeText
    required property string spokenText
    required property bool isUp
    required property bool isDown

    width: ListView.view.width
    height: Theme.rowHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: spokenText

    Rectangle {
        id: dot

        anchors.verticalCenter: parent.verticalCenter
        width: Theme.dotSize
        height: Theme.dotSize
        radius: Theme.dotSize / 2
        color: root.isUp ? Theme.statusUp : root.isDown ? Theme.statusDown : Theme.statusMuted
    }

    Column {
        anchors.left: dot.right
        anchors.leftMargin: Theme.spacing
        anchors.right: state.left
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.tightSpacing

        Text {
            width: parent.width
            text: root.name
            elide: Text.ElideRight
            color: Theme.textPrimary
            font: Theme.body
        }

        Text {
            width: parent.width
            text: root.address
            elide: Text.ElideMiddle
            color: Theme.textSecondary
            font: Theme.footnote
        }
    }

    Column {
        id: state

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width / 2
        spacing: Theme.tightSpacing

        Text {
            width: parent.width
            horizontalAlignment: Text.AlignRight
            text: root.resultText
            color: root.isDown ? Theme.statusDown : Theme.textPrimary
            font: Theme.body
        }

        Text {
            width: parent.width
            horizontalAlignment: Text.AlignRight
            elide: Text.ElideRight
            text: root.uptimeText
            color: Theme.textSecondary
            font: Theme.footnote
        }
    }
}
