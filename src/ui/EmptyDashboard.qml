import QtQuick

import Ostrel
import Ostrel.Theme

// What the dashboard shows while there are no monitors: an invitation to add the first.
Item {
    id: root

    required property DashboardView dashboard

    Column {
        anchors.centerIn: parent
        spacing: Theme.sectionSpacing

        Disc {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Theme.emblemPlateSize
            height: width
            diameter: width
            color: Theme.emblemPlate

            Symbol {
                anchors.centerIn: parent
                name: "bird.fill"
                systemSize: Theme.emblemSystemSize
                color: Theme.emblem
            }
        }

        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Theme.emptyTextGap

            ThemeText {
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("Start Monitoring")
                font: Theme.bold24
            }

            ThemeText {
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("Add a URL to track uptime and response time")
                font: Theme.regular14
                color: Theme.textSecondary
            }
        }

        PillButtonStyle {
            objectName: "addFirstMonitor"
            anchors.horizontalCenter: parent.horizontalCenter
            symbol: "plus"
            text: qsTr("Add Monitor")
            onClicked: root.dashboard.addRequested()
        }
    }
}
