pragma ComponentBehavior: Bound

import QtQuick

// A help text under its parent, made once it is wanted for the first time: few ever are.
Item {
    id: root

    required property string text
    required property bool isWanted
    // Null until then.
    property HelpText help: null

    anchors.fill: parent
    onIsWantedChanged: {
        if (isWanted && !help)
            help = helpComponent.createObject(root) as HelpText;
    }

    Component {
        id: helpComponent

        HelpText {
            text: root.text
            visible: root.isWanted
        }
    }
}
