import QtQuick

// Is triggered when what had the focus in `content` is gone or hidden, so that the keys would lead
// nowhere.
Timer {
    required property FocusScope content
    required property bool isWatching
    readonly property Item focused: content.Window.activeFocusItem

    // Waits, because the focus may be on its way to another item.
    interval: 0
    running: isWatching && content.Window.active && (!focused || focused === content || !focused.visible)
}
