import QtQuick

import Ostrel.Theme

// The content of the settings window with high contrast.
SettingsPage {
    Component.onCompleted: {
        Theme.reducedMotion = true;
        Theme.highContrast = true;
    }
}
