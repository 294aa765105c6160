import QtQuick

import Ostrel
import Ostrel.Theme

// The window of the settings; no larger and no smaller than they are.
Window {
    id: root

    required property Settings settings
    required property DesktopActions desktop
    property bool canQuit: true

    // Shows the window, or brings it to the front.
    function present(): void {
        // It was made as the main window's own, which would take it along when that is closed or
        // minimised.
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
        settings: root.settings
        actions: root.desktop
        focus: true
        Keys.onEscapePressed: root.close()
    }

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: root.close()
    }

    Shortcut {
        sequence: "Ctrl+Q"
        enabled: root.canQuit
        onActivated: Qt.quit()
    }
}
