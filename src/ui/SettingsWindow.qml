import QtQuick

import Ostrel
import Ostrel.Theme

// The window of the settings; no larger and no smaller than they are.
Window {
    id: root

    required property MainWindow mainWindow

    // Shows the window, or brings it to the front.
    function present(): void {
        // The loader has made it the main window's own, which would take it along when that is
        // closed or minimised.
        transientParent = null;
        show();
        raise();
        requestActivate();
    }

    title: qsTr("Settings")
    width: Theme.settingsWidth
    height: Theme.settingsHeight
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    color: Theme.background

    SettingsView {
        anchors.fill: parent
        settings: root.mainWindow.settings
        actions: root.mainWindow.desktop
        focus: true
        Keys.onEscapePressed: root.close()
    }

    Connections {
        target: root.mainWindow

        function onSettingsRequested(): void {
            root.present();
        }
    }

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: root.close()
    }
}
