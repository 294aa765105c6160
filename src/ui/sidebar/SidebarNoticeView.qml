import QtQuick

import Ostrel
import Ostrel.Theme

// Shows the sidebar's notice while there is one; otherwise takes no space.
Item {
    id: root

    required property SidebarNotice notice
    readonly property real rowHeight: 36
    readonly property real inset: 18
    readonly property real symbolGap: 8

    implicitHeight: visible ? rowHeight : 0
    opacity: notice.isNeeded ? 1 : 0
    visible: opacity > 0
    Accessible.role: Accessible.AlertMessage
    Accessible.name: notice.text

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.quickMotion
        }
    }

    Hairline {
        width: parent.width
    }

    Symbol {
        id: symbol

        x: root.inset
        anchors.verticalCenter: parent.verticalCenter
        name: root.notice.symbol
        systemSize: 12
        color: ToneColors.of(root.notice.tone)
    }

    QuietText {
        objectName: "noticeText"
        anchors.left: symbol.right
        anchors.leftMargin: root.symbolGap
        anchors.right: copy.visible ? copy.left : parent.right
        anchors.rightMargin: copy.visible ? 0 : root.inset
        anchors.verticalCenter: parent.verticalCenter
        text: root.notice.text
        font: Theme.footnote
        color: Theme.textSecondary
        wrapMode: Text.Wrap
        maximumLineCount: 2
    }

    IconButton {
        id: copy

        objectName: "copyAddress"
        anchors.right: parent.right
        anchors.rightMargin: Theme.rowMargin
        anchors.verticalCenter: parent.verticalCenter
        visible: root.notice.hasAddress
        symbol: "doc.on.clipboard"
        helpText: qsTr("Copy Address")
        onClicked: root.notice.copyAddress()
    }
}
