import QtQuick
import QtQuick.Templates as T

// What all the theme's buttons share: the keys that press them, their place in the focus chain,
// the focus ring, the help text and what a screen reader says.
T.AbstractButton {
    id: root

    property string helpText: ""
    property string spokenName: text !== "" ? text : helpText
    property real radius: Theme.cornerRadiusSmall
    property bool showsHover: hovered
    property bool showsFocus: visualFocus

    function press(): void {
        if (root.checkable)
            root.toggle();
        root.clicked();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: spokenName
    Accessible.onPressAction: press()
    Accessible.onToggleAction: press()
    Keys.onReturnPressed: event => {
        if (!event.isAutoRepeat)
            press();
    }
    Keys.onEnterPressed: event => {
        if (!event.isAutoRepeat)
            press();
    }

    FocusRing {
        visible: root.showsFocus
        controlRadius: root.radius
    }

    HelpText {
        text: root.helpText
        visible: root.hovered && !root.down && root.helpText !== ""
    }
}
