import QtQuick
import QtQuick.Templates as T

// Lets a control show the keyboard focus that comes back from a popup or another window as it did
// before, for the keys go to it again.
Connections {
    required property T.Control control
    // Why it last got the focus, not counting its return.
    property int reason: Qt.OtherFocusReason

    function note(): void {
        const returns = control.focusReason === Qt.PopupFocusReason || control.focusReason === Qt.ActiveWindowFocusReason;
        if (returns)
            control.focusReason = reason;
        else if (control.activeFocus)
            reason = control.focusReason;
    }

    // The reason of its loss may be that of its next gain, which then is no change.
    function onActiveFocusChanged(): void {
        note();
    }

    function onFocusReasonChanged(): void {
        note();
    }

    target: control
}
