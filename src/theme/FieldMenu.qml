import QtQuick
import QtQuick.Templates as T

// The context menu of a field.
ContextMenu {
    id: root

    required property T.TextField field
    readonly property bool hasSelection: field.selectedText !== ""

    onClosed: field.forceActiveFocus(Qt.PopupFocusReason)

    ContextMenuItem {
        text: qsTr("Undo")
        enabled: root.field.canUndo
        onTriggered: root.field.undo()
    }

    ContextMenuItem {
        text: qsTr("Cut")
        enabled: root.hasSelection
        onTriggered: root.field.cut()
    }

    ContextMenuItem {
        text: qsTr("Copy")
        enabled: root.hasSelection
        onTriggered: root.field.copy()
    }

    ContextMenuItem {
        text: qsTr("Paste")
        enabled: root.field.canPaste
        onTriggered: root.field.paste()
    }

    ContextMenuItem {
        text: qsTr("Delete")
        enabled: root.hasSelection
        onTriggered: root.field.remove(root.field.selectionStart, root.field.selectionEnd)
    }

    ContextMenuItem {
        text: qsTr("Select All")
        enabled: root.field.length > 0
        onTriggered: root.field.selectAll()
    }
}
