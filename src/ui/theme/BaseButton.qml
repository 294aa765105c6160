pragma ComponentBehavior: Bound

import QtQuick

import Ostrel.Theme

// What all the theme's buttons share: the focus ring, the help text and what a screen reader says.
ButtonItem {
    id: root

    property string helpText: ""
    property string spokenName: text !== "" ? text : helpText
    property real radius: Theme.cornerRadiusSmall
    property bool showsHover: hovered
    property bool showsFocus: visualFocus
    readonly property bool wantsHelp: hovered && !down && helpText !== ""
    // Null until the pointer first comes.
    property HelpText help: null

    implicitWidth: (contentItem ? contentItem.implicitWidth : 0) + 2 * horizontalPadding
    implicitHeight: (contentItem ? contentItem.implicitHeight : 0) + 2 * verticalPadding
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.role: checkable ? Accessible.CheckBox : Accessible.Button
    Accessible.name: spokenName
    Accessible.description: enabled ? "" : qsTr("Unavailable")
    onWantsHelpChanged: {
        if (wantsHelp && !help)
            help = helpComponent.createObject(root) as HelpText;
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
