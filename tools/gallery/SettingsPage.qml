import Ostrel
import Ostrel.Gallery

// The content of the settings window.
SettingsView {
    id: root

    width: implicitWidth
    height: implicitHeight
    settings: canned.settings
    actions: canned.actions

    CannedSettings {
        id: canned
    }
}
