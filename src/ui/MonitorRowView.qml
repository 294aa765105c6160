import QtQuick

import Ostrel
import Ostrel.Theme

// One monitor in the sidebar.
SidebarRow {
    id: root

    required property string url
    required property string name
    required property string address
    required property int status
    required property bool isPending
    required property bool isDown
    required property string resultText
    required property int resultTone
    required property string uptimeText
    required property string spokenText

    implicitHeight: Theme.rowHeight
    spokenName: spokenText
    Accessible.description: address
    onIsPendingChanged: {
        if (isPending && !ring.item)
            ring.setSource("RowPendingRing.qml", {
                objectName: "ring"
            });
    }

    FaviconView {
        id: icon

        objectName: "icon"
        x: Theme.rowInset
        anchors.verticalCenter: parent.verticalCenter
        urlString: root.url
        size: Theme.rowIconSize

        // The dot's ring is as wide as its margin at most.
        Disc {
            objectName: "dot"
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: -Theme.rowDotOverhang - Theme.rowDotMargin
            width: Theme.dotSize + 2 * Theme.rowDotMargin
            height: Theme.dotSize + 2 * Theme.rowDotMargin
            diameter: Theme.dotSize
            color: Theme.over(Theme.statusColor(root.status), root.ground)
            groundDiameter: Theme.dotSize + 2 * Theme.dotRing
            groundColor: root.ground
        }
    }

    Column {
        anchors.left: icon.right
        anchors.leftMargin: Theme.rowGap
        anchors.right: figures.left
        anchors.rightMargin: Theme.rowGap
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.rowTextGap

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
        spacing: Theme.rowFigureGap

        Item {
            anchors.right: parent.right
            width: root.isPending ? Theme.pendingRingSize : result.implicitWidth
            height: Theme.rowStateHeight

            QuietText {
                id: result

                objectName: "result"
                anchors.verticalCenter: parent.verticalCenter
                visible: !root.isPending
                text: root.resultText
                font: root.isDown ? Theme.bold9 : Theme.mono
                color: ToneColors.of(root.resultTone)
            }

            // Made for the first wait: most rows never need it.
            Loader {
                id: ring

                anchors.verticalCenter: parent.verticalCenter
                visible: root.isPending
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
