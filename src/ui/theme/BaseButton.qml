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
    readonly property bool wantsHelp: hovered && !down && helpText !== ""

    function press(): void {
        if (root.checkable)
            root.toggle();
        root.clicked();
    }

    // Found by its name. As a handler, the action would be offered twice.
    function accessiblePressAction(): void {
        if (root.enabled)
            press();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: spokenName
    Accessible.description: enabled ? "" : qsTr("Unavailable")
    onWantsHelpChanged: {
        if (wantsHelp && !help.item)
            help.setSource("HelpText.qml", {
                text: Qt.binding(() => helpText)
            });
    }
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

    // Made when the pointer first comes.
    Loader {
        id: help

        anchors.fill: parent
        onLoaded: (item as T.ToolTip).visible = Qt.binding(() => root.wantsHelp)
    }
}
