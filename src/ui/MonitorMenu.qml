import QtQuick

import Ostrel
import Ostrel.Theme

// The context menu of a monitor's row.
RowMenu {
    id: root

    required property MonitorListView list
    property MonitorListRow row: null
    property var monitorId
    property bool isMonitorEnabled: true

    function openFor(row: MonitorListRow, x: real, y: real): void {
        root.row = row;
        monitorId = row.monitorId;
        isMonitorEnabled = row.isEnabled;
        title = row.name;
        popup(row, x, y);
    }

    onClosed: list.forceActiveFocus(Qt.PopupFocusReason)

    Binding {
        target: root.list
        property: "rowWithMenu"
        value: root.visible ? root.row : null
    }

    Connections {
        target: root.list

        function onMenuRequested(row: MonitorListRow, x: real, y: real): void {
            root.openFor(row, x, y);
        }
    }

    RowMenuItem {
        symbol: "arrow.trianglehead.clockwise"
        text: qsTr("Check Now")
        onTriggered: root.list.actions.checkNow(root.monitorId)
    }

    RowMenuItem {
        symbol: root.isMonitorEnabled ? "pause" : "play"
        text: root.isMonitorEnabled ? qsTr("Pause") : qsTr("Resume")
        onTriggered: root.list.actions.togglePause(root.monitorId)
    }

    RowMenuItem {
        symbol: "trash"
        text: qsTr("Delete")
        isDestructive: true
        onTriggered: {
            root.list.selection.leave(root.monitorId);
            root.list.actions.deleteMonitor(root.monitorId);
        }
    }
}
