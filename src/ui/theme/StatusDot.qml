import QtQuick

import Ostrel.Theme

// A monitor's status as a dot: a steady halo while up, a swelling one while down.
Item {
    id: root

    required property int status
    required property real size
    // Set when the dot is shown: lets the halo of a monitor that is down swell and fade.
    property bool pulse: false

    implicitWidth: 2.6 * size
    implicitHeight: 2.6 * size
    Component.onCompleted: pulse = true

    Rectangle {
        objectName: "steadyHalo"
        anchors.centerIn: parent
        visible: root.status === MonitorStatus.Up
        width: 2 * root.size
        height: width
        radius: width / 2
        color: Theme.faded(Theme.statusUp, 0.15)
    }

    PulsingHalo {
        objectName: "halo"
        anchors.centerIn: parent
        visible: root.status === MonitorStatus.Down
        diameter: 2.4 * root.size
        pulse: root.pulse
    }

    Rectangle {
        objectName: "dot"
        anchors.centerIn: parent
        width: root.size
        height: root.size
        radius: width / 2
        color: Theme.statusColor(root.status)
    }
}
