import QtQuick

import Ostrel.Theme

// Something is under way. It turns only while it can be seen, and never where the desktop asks for
// stillness.
PendingArc {
    id: root

    readonly property bool isTurning: visible && exposure.isExposed && !Theme.reducedMotion

    implicitWidth: Theme.pendingRingSize
    implicitHeight: Theme.pendingRingSize
    trackColor: Theme.pendingTrack
    arcColor: Theme.pendingArc
    stroke: Theme.pendingRingStroke
    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("Checking...")

    WindowExposure {
        id: exposure

        window: root.Window.window
    }

    NumberAnimation {
        target: root
        property: "angle"
        running: root.isTurning
        loops: Animation.Infinite
        from: 0
        to: 360
        duration: Theme.pendingTurn
    }
}
