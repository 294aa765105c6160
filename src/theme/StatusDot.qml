import QtQuick

import Ostrel.Theme

// A monitor's status as a dot: with a steady halo while up, a pulsing one while down.
Disc {
    id: root

    required property int status
    required property real size
    readonly property bool isDown: status === MonitorStatus.Down
    // Set when the dot is shown: starts the pulsing of the halo of a monitor that is down.
    property bool pulse: false

    implicitWidth: 2.6 * size
    implicitHeight: 2.6 * size
    diameter: size
    color: Theme.statusColor(status)
    groundDiameter: 2 * size
    groundColor: status === MonitorStatus.Up ? Theme.faded(Theme.statusUp, 0.15) : Theme.none
    Component.onCompleted: pulse = true

    PulsingHalo {
        objectName: "halo"
        // Behind the dot.
        z: -1
        x: (root.width - width) / 2
        y: (root.height - height) / 2
        visible: root.isDown
        restDiameter: 2.4 * root.size
        pulse: root.pulse
    }
}
