import QtQuick

import Ostrel.Theme

// The row above the monitors that represents the dashboard.
SidebarRow {
    id: root

    implicitHeight: 40
    spokenName: "Ostrel"

    AppIcon {
        id: icon

        x: Theme.rowInset
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.rowIconSize
    }

    QuietText {
        anchors.left: icon.right
        anchors.leftMargin: Theme.rowGap
        anchors.verticalCenter: parent.verticalCenter
        text: "Ostrel"
        font: Theme.headline
        color: root.nameColor
    }
}
