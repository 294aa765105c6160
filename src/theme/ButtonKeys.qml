import QtQuick
import QtQuick.Templates as T

// Lets Return and Enter press a button like Space, once however long they are held. The button's
// `Keys` must forward to this item.
Item {
    id: root

    required property T.AbstractButton button

    function press(): void {
        if (!button.enabled)
            return;
        if (button.checkable && !(button.autoExclusive && button.checked))
            button.toggle();
        button.clicked();
    }

    function pressOnce(event: KeyEvent): void {
        if (!event.isAutoRepeat)
            press();
    }

    // Each auto-repeat of a held key would press the button again.
    function takeRepetition(event: KeyEvent): void {
        event.accepted = event.isAutoRepeat && event.key === Qt.Key_Space;
    }

    Keys.onReturnPressed: event => pressOnce(event)
    Keys.onEnterPressed: event => pressOnce(event)
    Keys.onPressed: event => takeRepetition(event)
    Keys.onReleased: event => takeRepetition(event)
}
