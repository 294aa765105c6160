import QtQuick
import QtQuick.Templates as T

// Lets Return and Enter press a button like Space, once however long they are held. The button's
// `Keys` must forward to this item.
Item {
    id: root

    required property T.AbstractButton button
    // If false, Return and Enter are left to what the button is in.
    property bool takesReturn: true

    function press(): void {
        if (!button.enabled)
            return;
        if (button.checkable && !(button.autoExclusive && button.checked))
            button.toggle();
        button.clicked();
    }

    function takeReturn(event: KeyEvent): void {
        event.accepted = takesReturn;
        if (takesReturn && !event.isAutoRepeat)
            press();
    }

    // Each auto-repeat of a held key would press the button again.
    function takeRepetition(event: KeyEvent): void {
        event.accepted = event.isAutoRepeat && event.key === Qt.Key_Space;
    }

    Keys.onReturnPressed: event => takeReturn(event)
    Keys.onEnterPressed: event => takeReturn(event)
    Keys.onPressed: event => takeRepetition(event)
    Keys.onReleased: event => takeRepetition(event)
}
