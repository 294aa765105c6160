import QtQuick

// A help text under its parent, made once it is wanted for the first time: few ever are.
Loader {
    id: root

    required property string text
    required property bool isWanted

    active: false
    onIsWantedChanged: {
        if (isWanted)
            active = true;
    }

    sourceComponent: HelpText {
        parent: root.parent
        text: root.text
        visible: root.isWanted
    }
}
