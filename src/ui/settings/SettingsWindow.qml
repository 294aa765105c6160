import QtQuick

import Ostrel
import Ostrel.Theme

// The window of the settings, with a fixed size.
Window {
    id: root

    required property Settings settings
    required property DesktopActions desktop
    property bool canQuit: true
    // The window that this one opens over.
    required property Window mainWindow

    // Shows the window, or brings it to the front.
    function present(): void {
        // It was created as a child of the main window, which would close or minimise it together
        // with itself.
        transientParent = null;
        if (!visible)
            placement.restore();
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

    WindowPlacement {
        id: placement

        window: root
        name: "settingsWindow"
        over: root.mainWindow
    }

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
