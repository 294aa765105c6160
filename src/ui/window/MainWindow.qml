pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

Window {
    id: root

    required property MonitorListModel monitors
    required property DashboardModel dashboardModel
    required property AppActions actions
    required property MonitorDetailModel detailModel
    required property SheetOpener opener
    required property Settings settings
    required property DesktopActions desktop
    required property SidebarNotice notice
    // If true, nothing moves unless the user moves it.
    property bool reducedMotion: false
    // Null until it is first requested.
    property SettingsWindow settingsWindow: null

    function showSettings(): void {
        if (!settingsWindow)
            settingsWindow = settingsComponent.createObject(content) as SettingsWindow;
        settingsWindow.present();
    }

    title: "Ostrel"
    width: Theme.windowWidth
    height: Theme.windowHeight
    minimumWidth: Theme.windowMinimumWidth
    minimumHeight: Theme.windowMinimumHeight
    color: Theme.background

    Binding {
        target: Theme
        property: "reducedMotion"
        value: root.reducedMotion
    }

    ContentView {
        id: content

        anchors.fill: parent
        monitors: root.monitors
        dashboardModel: root.dashboardModel
        actions: root.actions
        detailModel: root.detailModel
        opener: root.opener
        desktop: root.desktop
        notice: root.notice
        onSettingsRequested: root.showSettings()
    }

    Component {
        id: settingsComponent

        SettingsWindow {
            settings: root.settings
            desktop: root.desktop
        }
    }

    Shortcut {
        sequence: "Ctrl+N"
        onActivated: content.add()
    }

    Shortcut {
        sequence: "Ctrl+R"
        onActivated: root.actions.checkNow(content.selectedMonitorId)
    }

    Shortcut {
        sequence: "Ctrl+E"
        onActivated: content.edit()
    }

    Shortcut {
        sequence: "Ctrl+,"
        onActivated: root.showSettings()
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
