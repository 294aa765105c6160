import QtQuick

import Ostrel
import Ostrel.Theme

// Refreshes the uptimes while the window is visible: their time windows move even without a check.
Item {
    id: root

    required property MonitorListModel monitors

    WindowExposure {
        id: exposure

        window: root.Window.window
    }

    Timer {
        interval: root.monitors.refreshInterval
        running: exposure.isExposed
        repeat: true
        triggeredOnStart: true
        onTriggered: root.monitors.refresh()
    }
}
