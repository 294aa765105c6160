import QtQuick

import Ostrel
import Ostrel.Theme

// The context menu of a monitor's row.
ContextMenu {
    id: root

    required property AppActions actions
    property MonitorRowView row: null
    property var monitorId
    property bool isMonitorEnabled: true
    readonly property bool isChecking: row !== null && row.isChecking
    // Null while the menu is closed.
    readonly property MonitorRowView openRow: visible ? row : null

    // The monitor is about to be deleted.
    signal left(monitorId: var)

    function openFor(row: MonitorRowView, x: real, y: real): void {
        root.row = row;
        monitorId = row.monitorId;
        isMonitorEnabled = row.isEnabled;
        title = row.name;
        popup(row, x, y);
    }

    ContextMenuItem {
        symbol: "arrow.trianglehead.clockwise"
        text: root.isChecking ? qsTr("Checking...") : qsTr("Check Now")
        enabled: !root.isChecking
        onTriggered: root.actions.checkNow(root.monitorId)
    }

    ContextMenuItem {
        symbol: root.isMonitorEnabled ? "pause" : "play"
        text: root.isMonitorEnabled ? qsTr("Pause") : qsTr("Resume")
        onTriggered: root.actions.togglePause(root.monitorId)
    }

    ContextMenuItem {
        symbol: "trash"
        text: qsTr("Delete")
        isDestructive: true
        onTriggered: {
            root.left(root.monitorId);
            root.actions.deleteMonitor(root.monitorId);
        }
    }
}
