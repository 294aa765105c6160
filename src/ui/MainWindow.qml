import QtQuick

import Ostrel
import Ostrel.Theme

Window {
    id: root

    required property MonitorListModel monitors
    required property DashboardOverview overview
    required property AppActions actions

    title: "Ostrel"
    width: Theme.windowWidth
    height: Theme.windowHeight
    minimumWidth: Theme.windowMinimumWidth
    minimumHeight: Theme.windowMinimumHeight
    color: Theme.background

    ContentView {
        id: content

        anchors.fill: parent
        monitors: root.monitors
        overview: root.overview
        actions: root.actions
    }

    Shortcut {
        sequence: "Ctrl+N"
        enabled: content.canAdd
        onActivated: content.showingAddSheet = true
    }

    Shortcut {
        sequence: "Ctrl+R"
        onActivated: content.checkSelected()
    }

    Shortcut {
        sequence: "Ctrl+,"
        enabled: content.hasSettings
        onActivated: content.settingsRequested()
    }

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: root.close()
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: Qt.quit()
    }
}
