import QtQuick

// Lets the arrow keys move among choices and take the one that they reach. The `Keys` of the item
// that holds the choices forward to it.
Item {
    id: root

    // Repeats a ChoiceButton.
    required property Repeater choices
    readonly property int selected: {
        for (let place = 0; place < choices.count; ++place) {
            if ((choices.itemAt(place) as ChoiceButton)?.isSelected)
                return place;
        }
        return -1;
    }
    // The one that the Tab key leads to.
    readonly property int tabStop: Math.max(0, selected)

    function move(step: int): void {
        // If none is taken, the first one is, whichever arrow is pressed.
        const next = selected < 0 ? 0 : selected + step;
        if (next < 0 || next >= choices.count)
            return;
        const choice = choices.itemAt(next) as ChoiceButton;
        // First: no item stops being a Tab stop while it has the keyboard.
        choice.forceActiveFocus(Qt.TabFocusReason);
        choice.clicked();
    }

    Keys.onLeftPressed: move(-1)
    Keys.onUpPressed: move(-1)
    Keys.onRightPressed: move(1)
    Keys.onDownPressed: move(1)
}
