import QtQuick

import Ostrel.Theme

// A switch. `spokenName` is its label's text.
BaseButton {
    id: root

    readonly property color toggleOff: Theme.faint(Theme.ink, 0.14)
    readonly property real toggleWidth: 36
    readonly property real toggleHeight: 20
    readonly property real toggleKnob: 16

    readonly property real knobMargin: (root.toggleHeight - root.toggleKnob) / 2

    function accessibleToggleAction(): void {
        accessiblePressAction();
    }

    checkable: true
    implicitWidth: root.toggleWidth
    implicitHeight: root.toggleHeight
    radius: height / 2

    background: EdgedBox {
        radius: root.radius
        color: root.checked ? Theme.accent : root.toggleOff

        Behavior on color {
            ColorMotion {}
        }

        EdgedBox {
            x: root.checked ? root.toggleWidth - root.toggleKnob - root.knobMargin : root.knobMargin
            y: root.knobMargin
            width: root.toggleKnob
            height: root.toggleKnob
            radius: root.toggleKnob / 2
            color: Theme.surface

            Behavior on x {
                NumberAnimation {
                    duration: Theme.quickMotion
                    easing.type: Easing.InOutQuad
                }
            }
        }
    }
}
