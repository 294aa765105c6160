import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// A button for one of several choices. Its owner sets `isSelected`. A click doesn't move the
// keyboard focus, and Return is left to the form.
//
// For assistive tools the item is a radio button and the button inside is ignored: Qt's own radio
// button leaks its attached objects if it is created while such a tool is running.
KeyboardItem {
    id: root

    property alias text: button.text
    property alias contentItem: button.contentItem
    property alias background: button.background
    property alias horizontalPadding: button.horizontalPadding
    property alias down: button.down
    property bool isSelected: false
    // Its place among the choices, from 0, and how many there are, which assistive tools say.
    property int place: 0
    property int count: 0
    property real radius: Theme.cornerRadiusSmall
    property bool showsHover: button.hovered && enabled
    property bool showsFocus: visualFocus

    signal clicked

    // Found by name. As handlers, the actions would be offered twice.
    function accessiblePressAction(): void {
        keys.press();
    }

    function accessibleToggleAction(): void {
        keys.press();
    }

    implicitWidth: button.implicitContentWidth + button.leftPadding + button.rightPadding
    implicitHeight: button.implicitContentHeight + button.topPadding + button.bottomPadding
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.description: {
        if (!enabled)
            return qsTr("Unavailable");
        return count > 0 ? qsTr("%1 of %2").arg(place + 1).arg(count) : "";
    }
    Accessible.checkable: true
    Accessible.checked: isSelected
    Keys.forwardTo: [keys, button]

    T.AbstractButton {
        id: button

        anchors.fill: parent
        focusPolicy: Qt.NoFocus
        hoverEnabled: true
        Accessible.ignored: true
        onClicked: root.clicked()
    }

    ButtonKeys {
        id: keys

        button: button
        takesReturn: false
    }

    FocusRing {
        visible: root.showsFocus
        controlRadius: root.radius
    }
}
