import QtQuick

import Ostrel.Theme

// A switch. `spokenName` is what its label says.
BaseButton {
    id: root

    readonly property real knobMargin: (Theme.toggleHeight - Theme.toggleKnob) / 2

    function accessibleToggleAction(): void {
        accessiblePressAction();
    }

    checkable: true
    implicitWidth: Theme.toggleWidth
    implicitHeight: Theme.toggleHeight
    radius: height / 2

    background: EdgedBox {
        radius: root.radius
        color: root.checked ? Theme.accent : Theme.toggleOff

        Behavior on color {
            ColorAnimation {
                duration: Theme.quickMotion
            }
        }

        EdgedBox {
            x: root.checked ? Theme.toggleWidth - Theme.toggleKnob - root.knobMargin : root.knobMargin
            y: root.knobMargin
            width: Theme.toggleKnob
            height: Theme.toggleKnob
            radius: Theme.toggleKnob / 2
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
