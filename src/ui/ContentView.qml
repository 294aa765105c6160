import QtQuick

import Ostrel
import Ostrel.Theme

Item {
    id: root

    required property MonitorListModel monitors

    ListView {
        id: list

        anchors.fill: parent
        anchors.margins: Theme.pageMargin
        clip: true
        focus: true
        model: root.monitors
        delegate: MonitorRowView {}
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Monitors")
    }

    Text {
        anchors.centerIn: parent
        visible: list.count === 0
        text: qsTr("No monitors")
        color: Theme.textSecondary
        font: Theme.body
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
