import QtQuick

import Ostrel
import Ostrel.Theme

// The left column: the monitors, and under them the ways to a new one and to the settings.
Item {
    id: root

    required property MonitorListModel monitors
    required property MonitorSelection selection
    required property AppActions actions
    // Whether there is something to open behind the two buttons.
    property bool canAdd: true
    property bool canOpenSettings: true

    signal addRequested
    signal settingsRequested

    MonitorListView {
        anchors.top: parent.top
        anchors.bottom: footer.top
        width: parent.width
        focus: true
        monitors: root.monitors
        selection: root.selection
        actions: root.actions
    }

    Item {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.footerHeight
        visible: root.canAdd || root.canOpenSettings

        Rectangle {
            width: parent.width
            height: Theme.hairlineWidth
            color: Theme.hairline
        }

        AddMonitorButton {
            objectName: "addMonitor"
            x: Theme.rowMargin
            anchors.verticalCenter: parent.verticalCenter
            visible: root.canAdd
            onClicked: root.addRequested()
        }

        IconButton {
            objectName: "settings"
            anchors.right: parent.right
            anchors.rightMargin: Theme.rowMargin
            anchors.verticalCenter: parent.verticalCenter
            visible: root.canOpenSettings
            symbol: "slider.horizontal"
            helpText: qsTr("Settings")
            onClicked: root.settingsRequested()
        }
    }
}
