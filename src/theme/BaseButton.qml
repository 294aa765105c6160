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

    LateHelp {
        text: root.helpText
        isWanted: root.wantsHelp
    }
}
