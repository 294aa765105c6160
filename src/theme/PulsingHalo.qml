import QtQuick

import Ostrel.Theme

// The ring around the dot of a monitor that is down. Animated only while it is visible, and never
// if the desktop asks for reduced motion.
Disc {
    id: root

    required property real restDiameter
    required property bool pulse
    readonly property bool isPulsing: pulse && visible && exposure.isExposed && !Theme.reducedMotion
    // From 0, small and strong, to 1, large and invisible.
    property real swell: isPulsing ? HaloClock.swell : 0
    readonly property real smallest: 0.85
    readonly property real largest: 1.4

    width: restDiameter * largest
    height: restDiameter * largest
    diameter: restDiameter * (smallest + (largest - smallest) * swell)
    color: Theme.faded(Theme.statusDown, 0.20)
    opacity: 0.7 * (1 - swell)
    onIsPulsingChanged: {
        if (isPulsing)
            HaloClock.follow();
        else
            HaloClock.leave();
    }
    Component.onDestruction: {
        if (isPulsing)
            HaloClock.leave();
    }

    WindowExposure {
        id: exposure

        window: root.visible ? root.Window.window : null
    }
}
