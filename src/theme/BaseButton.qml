pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// What the theme's buttons share: the focus ring, the help text and the texts for screen readers. A
// click doesn't move the keyboard focus.
T.AbstractButton {
    id: root

    property string helpText: ""
    property string spokenName: text !== "" ? text : helpText
    property alias takesReturn: keys.takesReturn
    property real radius: Theme.cornerRadiusSmall
    property bool showsHover: hovered && enabled
    property bool showsFocus: visualFocus
    readonly property bool wantsHelp: (hovered || visualFocus) && enabled && !down && helpText !== ""
    // Null until it is wanted for the first time.
    property HelpText help: null

    // Found by name. As a handler, the action would be offered twice.
    function accessiblePressAction(): void {
        keys.press();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: spokenName
    Accessible.description: enabled ? "" : qsTr("Unavailable")
    Keys.forwardTo: [keys]
    onWantsHelpChanged: {
        if (wantsHelp && !help)
            help = helpComponent.createObject(root) as HelpText;
    }

    ButtonKeys {
        id: keys

        button: root
    }

    ReturningFocus {
        control: root
    }

    FocusRing {
        visible: root.showsFocus
        controlRadius: root.radius
    }

    Component {
        id: helpComponent

        HelpText {
            text: root.helpText
            visible: root.wantsHelp
        }
    }
}
