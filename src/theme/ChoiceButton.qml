import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// A button that stands for one of several choices. What is taken, its owner says through
// `isSelected`. A click doesn't take the keyboard, and Return is left to the form.
//
// To assistive tools it is a radio button, the button inside is nothing: Qt's own radio button leaks
// what it attaches to itself while it is made with such a tool at work.
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

    // Found by their names. As handlers, the actions would be offered twice.
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
