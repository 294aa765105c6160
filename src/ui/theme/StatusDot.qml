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

    Disc {
        anchors.fill: parent
        visible: root.status === MonitorStatus.Up
        diameter: 2 * root.size
        color: Theme.faded(Theme.statusUp, 0.15)
    }

    PulsingHalo {
        objectName: "halo"
        x: (root.width - width) / 2
        y: (root.height - height) / 2
        visible: root.status === MonitorStatus.Down
        restDiameter: 2.4 * root.size
        pulse: root.pulse
    }

    Disc {
        anchors.fill: parent
        diameter: root.size
        color: Theme.statusColor(root.status)
    }
}
