import QtQuick

import Ostrel
import Ostrel.Theme

Window {
    id: root

    required property MonitorListModel monitors
    required property DashboardOverview overview
    required property AppActions actions
    required property MonitorDetailModel detailModel
    required property SheetOpener opener
    required property Settings settings
    required property DesktopActions desktop
    required property SidebarNotice notice
    // Whether nothing is to move but what the hand moves.
    property bool reducedMotion: false

    // To the settings' window, which doesn't have to be known before.
    signal settingsRequested

    // Does what the first frame would do. Without, it is done all the same.
    function layOut(): void {
        content.layOut();
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
        overview: root.overview
        actions: root.actions
        detailModel: root.detailModel
        opener: root.opener
        desktop: root.desktop
        notice: root.notice
        onSettingsRequested: {
            if (!settingsWindow.item)
                settingsWindow.setSource("SettingsWindow.qml", {
                    mainWindow: root
                });
            root.settingsRequested();
        }
    }

    // Made when it is first asked for.
    Loader {
        id: settingsWindow
    }

    Shortcut {
        sequence: "Ctrl+N"
        onActivated: content.add()
    }

    Shortcut {
        sequence: "Ctrl+R"
        onActivated: content.checkSelected()
    }

    Shortcut {
        sequence: "Ctrl+E"
        onActivated: content.editSelected()
    }

    Shortcut {
        sequence: "Ctrl+,"
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
