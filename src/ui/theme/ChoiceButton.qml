import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// A button that stands for one of several choices. What is taken, its owner says through
// `isSelected`. A click doesn't take the keyboard.
T.RadioButton {
    id: root

    property bool isSelected: false
    property real radius: Theme.cornerRadiusSmall
    property bool showsHover: hovered && enabled
    property bool showsFocus: visualFocus

    // Found by their names. As handlers, the actions would be offered twice.
    function accessiblePressAction(): void {
        keys.press();
    }

    function accessibleToggleAction(): void {
        keys.press();
    }

    checked: isSelected
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: text
    Accessible.description: enabled ? "" : qsTr("Unavailable")
    Keys.forwardTo: [keys]

    ButtonKeys {
        id: keys

        button: root
    }

    FocusRing {
        visible: root.showsFocus
        controlRadius: root.radius
    }
}
