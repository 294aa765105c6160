import QtQuick

// A monitor's row together with what its menu needs.
MonitorRowView {
    id: root

    required property int index
    required property var monitorId
    required property bool isEnabled
}
