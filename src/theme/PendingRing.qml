import QtQuick

import Ostrel.Theme

// Something is under way. It turns only while it can be seen, and never where the desktop asks for
// stillness.
PendingArc {
    id: root

    readonly property int pendingTurn: 1000

    readonly property bool isTurning: visible && exposure.isExposed && !Theme.reducedMotion

    implicitWidth: Theme.pendingRingSize
    implicitHeight: Theme.pendingRingSize
    trackColor: Qt.alpha(Theme.ink, 0.12)
    arcColor: Qt.alpha(Theme.ink, 0.50)
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
