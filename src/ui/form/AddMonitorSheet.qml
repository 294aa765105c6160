import QtQuick
import QtQuick.Templates as T

import Ostrel
import Ostrel.Theme

// The form for a new or an edited monitor, over the dimmed window. Call beginCreate() or
// beginEdit() of `form`, then open the sheet.
T.Popup {
    id: root

    readonly property real sheetRadius: 16
    readonly property real sheetWindowMargin: 48

    required property MonitorForm form
    readonly property real roomInWindow: parent ? parent.height - root.sheetWindowMargin : implicitHeight

    function confirm(): void {
        if (form.save())
            close();
    }

    parent: T.Overlay.overlay
    x: parent ? Theme.centred(parent.width, width) : 0
    y: parent ? Theme.centred(parent.height, height) : 0
    implicitWidth: 440
    implicitHeight: Math.min(implicitContentHeight, roomInWindow)
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape
    onAboutToShow: (contentItem as MonitorFormPanel).focusFirst()
    // The layout is complete only now.
    onOpened: (contentItem as MonitorFormPanel).showTop()

    T.Overlay.modal: Rectangle {
        color: Qt.alpha(Theme.ink, 0.24)
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.quickMotion
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            from: 1
            to: 0
            duration: Theme.quickMotion
        }
    }

    background: EdgedBox {
        radius: root.sheetRadius
        color: Theme.background
        edge: Theme.faint(Theme.accent, 0.10)
    }

    // The template doesn't name it.
    Binding {
        target: root.contentItem.parent
        property: "Accessible.name"
        value: root.form.title
    }

    contentItem: MonitorFormPanel {
        form: root.form
        onConfirmed: root.confirm()
        onCancelled: root.close()
    }
}
