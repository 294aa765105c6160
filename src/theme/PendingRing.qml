import QtQuick

import Ostrel.Theme

// Shows that work is in progress. Rotates only while it is visible, and never if the desktop asks
// for reduced motion.
PendingArc {
    id: root

    readonly property int pendingTurn: 1000

    readonly property bool isTurning: visible && exposure.isExposed && !Theme.reducedMotion

    implicitWidth: Theme.pendingRingSize
    implicitHeight: Theme.pendingRingSize
    trackColor: Qt.alpha(Theme.ink, 0.12)
    arcColor: Theme.faint(Theme.ink, 0.50)
    stroke: 2
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
        duration: root.pendingTurn
    }
}
