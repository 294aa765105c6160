import QtQuick

import Ostrel.Theme

// Shown by the dashboard while there are no monitors: an invitation to add the first.
Item {
    id: root

    readonly property real emblemPlateSize: 120
    readonly property real emblemSystemSize: 48
    readonly property real emptyTextGap: 8

    signal addRequested

    Column {
        anchors.centerIn: parent
        spacing: Theme.sectionSpacing

        Disc {
            anchors.horizontalCenter: parent.horizontalCenter
            width: root.emblemPlateSize
            height: width
            diameter: width
            color: Qt.alpha(Theme.accent, 0.06)

            Symbol {
                anchors.centerIn: parent
                name: "bird.fill"
                systemSize: root.emblemSystemSize
                color: Qt.rgba(1.00, 0.84, 0.04, 1.0)
            }
        }

        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: root.emptyTextGap

            ThemeText {
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("Start Monitoring")
                font: ThemeFonts.face(700, 24)
            }

            ThemeText {
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("Add a URL to track uptime and response time")
                font: ThemeFonts.face(400, 14)
                color: Theme.textSecondary
            }
        }

        PillButtonStyle {
            objectName: "addFirstMonitor"
            anchors.horizontalCenter: parent.horizontalCenter
            symbol: "plus"
            text: qsTr("Add Monitor")
            onClicked: root.addRequested()
        }
    }
}
