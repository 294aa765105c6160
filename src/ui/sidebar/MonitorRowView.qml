import QtQuick

import Ostrel
import Ostrel.Theme

// One monitor in the sidebar.
SidebarRow {
    id: root

    readonly property font bold9: ThemeFonts.face(700, 9, 0.5)
    readonly property real dotSize: 8
    readonly property real dotRing: 1.5
    readonly property real rowTextGap: 1
    readonly property real rowFigureGap: 2
    readonly property real rowStateHeight: 16
    readonly property real rowDotOverhang: 2
    readonly property real rowDotMargin: 2
    readonly property bool showsRing: isPending || isChecking

    required property int index
    required property var monitorId
    required property bool isEnabled
    required property string url
    required property string name
    required property string address
    required property int status
    required property bool isPending
    required property bool isChecking
    required property bool isDown
    required property string resultText
    required property int resultTone
    required property string uptimeText
    required property string spokenText

    implicitHeight: 48
    spokenName: spokenText
    Accessible.description: address

    FaviconView {
        id: icon

        objectName: "icon"
        x: Theme.rowInset
        anchors.verticalCenter: parent.verticalCenter
        urlString: root.url
        size: Theme.rowIconSize

        // The dot's ring is at most as wide as its margin.
        Disc {
            objectName: "dot"
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: -root.rowDotOverhang - root.rowDotMargin
            width: root.dotSize + 2 * root.rowDotMargin
            height: root.dotSize + 2 * root.rowDotMargin
            diameter: root.dotSize
            color: Theme.over(Theme.statusColor(root.status), root.ground)
            groundDiameter: root.dotSize + 2 * root.dotRing
            groundColor: root.ground
        }
    }

    Column {
        anchors.left: icon.right
        anchors.leftMargin: Theme.rowGap
        anchors.right: figures.left
        anchors.rightMargin: Theme.rowGap
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.rowTextGap

        QuietText {
            width: parent.width
            text: root.name
            font: Theme.demiBold13
            color: root.nameColor
        }

        QuietText {
            width: parent.width
            text: root.address
            elide: Text.ElideMiddle
            font: Theme.regular10
            color: Theme.textSecondary
        }
    }

    Column {
        id: figures

        anchors.right: parent.right
        anchors.rightMargin: Theme.rowInset
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.rowFigureGap

        Item {
            anchors.right: parent.right
            width: root.showsRing ? Theme.pendingRingSize : result.implicitWidth
            height: root.rowStateHeight

            QuietText {
                id: result

                objectName: "result"
                anchors.verticalCenter: parent.verticalCenter
                visible: !root.showsRing
                text: root.resultText
                font: root.isDown ? root.bold9 : Theme.mono
                color: ToneColors.of(root.resultTone)
            }

            PendingRing {
                objectName: "ring"
                anchors.verticalCenter: parent.verticalCenter
                visible: root.showsRing
                // The row itself has this text.
                Accessible.ignored: true
            }
        }

        QuietText {
            objectName: "uptime"
            anchors.right: parent.right
            text: root.uptimeText
            font: Theme.regular9
            color: Theme.textTertiary
        }
    }
}
