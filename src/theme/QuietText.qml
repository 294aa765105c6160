pragma ComponentBehavior: Bound

import QtQuick

// A text that its control already gives to assistive tools. If it is cut off, it is shown whole as
// help text while the pointer rests on it.
LineText {
    id: root

    // Null until the text is cut off for the first time.
    property PointerHelp wholeText: null

    onTruncatedChanged: {
        if (truncated && !wholeText)
            wholeText = wholeTextComponent.createObject(root) as PointerHelp;
    }

    Component {
        id: wholeTextComponent

        PointerHelp {
            text: root.text
            isNeeded: root.truncated
        }
    }
}
