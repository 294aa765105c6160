import QtQuick

import Ostrel
import Ostrel.Theme

// The left column: the monitors, and under them the buttons for a new one and for the settings.
Item {
    id: root

    readonly property real footerHeight: 49

    required property MonitorListModel monitors
    required property MonitorSelection selection
    required property AppActions actions
    required property SidebarNotice notice

    signal addRequested
    signal settingsRequested

    function focusList(): void {
        list.forceActiveFocus(Qt.TabFocusReason);
    }

    MonitorListView {
        id: list

        anchors.top: parent.top
        anchors.bottom: noticeRow.top
        width: parent.width
        focus: true
        monitors: root.monitors
        selection: root.selection
        actions: root.actions
    }

    SidebarNoticeView {
        id: noticeRow

        anchors.bottom: footer.top
        width: parent.width
        notice: root.notice
    }

    Item {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        height: root.footerHeight

        Hairline {
            width: parent.width
        }

        AddMonitorButton {
            objectName: "addMonitor"
            x: Theme.rowMargin
            anchors.verticalCenter: parent.verticalCenter
            onClicked: root.addRequested()
        }

        IconButton {
            objectName: "settings"
            anchors.right: parent.right
            anchors.rightMargin: Theme.rowMargin
            anchors.verticalCenter: parent.verticalCenter
            symbol: "slider.horizontal"
            helpText: qsTr("Settings")
            onClicked: root.settingsRequested()
        }
    }
}
