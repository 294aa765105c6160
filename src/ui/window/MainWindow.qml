pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

Window {
    id: root

    required property WindowModels models
    // If true, nothing moves unless the user moves it.
    property bool reducedMotion: false
    // If true, nothing that the user may want to read is faint.
    property bool highContrast: false
    // Null until it is first requested.
    property SettingsWindow settingsWindow: null

    function showSettings(): void {
        if (!settingsWindow)
            settingsWindow = settingsComponent.createObject(content) as SettingsWindow;
        settingsWindow.present();
    }

    objectName: "main"
    title: "Ostrel"
    width: Theme.windowWidth
    height: Theme.windowHeight
    minimumWidth: Theme.windowMinimumWidth
    minimumHeight: Theme.windowMinimumHeight
    color: Theme.background
    onReducedMotionChanged: Theme.reducedMotion = reducedMotion
    onHighContrastChanged: Theme.highContrast = highContrast

    WindowPlacement {
        window: root
        name: "mainWindow"
        Component.onCompleted: restore()
    }

    ContentView {
        id: content

        anchors.fill: parent
        models: root.models
        onSettingsRequested: root.showSettings()
    }

    Component {
        id: settingsComponent

        SettingsWindow {
            settings: root.models.settings
            desktop: root.models.desktop
            canQuit: !content.hasSheet
            mainWindow: root
        }
    }

    // They are disabled while the sheet is open, so that no half-filled form is lost or hidden.
    Shortcut {
        sequence: "Ctrl+N"
        enabled: !content.hasSheet
        onActivated: content.add()
    }

    Shortcut {
        sequence: "Ctrl+R"
        enabled: !content.hasSheet
        onActivated: root.models.actions.checkNow(content.selectedMonitorId)
    }

    Shortcut {
        sequence: "Ctrl+E"
        enabled: !content.hasSheet
        onActivated: content.edit()
    }

    Shortcut {
        sequence: "Ctrl+,"
        enabled: !content.hasSheet
        onActivated: root.showSettings()
    }

    Shortcut {
        sequence: "Ctrl+W"
        enabled: !content.hasSheet
        onActivated: root.close()
    }

    Shortcut {
        sequence: "Ctrl+Q"
        enabled: !content.hasSheet
        onActivated: Qt.quit()
    }
}
