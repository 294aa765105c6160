import QtQuick

import Ostrel.Theme

// The capsule-shaped button that confirms a sheet. If disabled, it becomes paler instead of fading.
BaseButton {
    id: root

    readonly property color confirmInvalid: Qt.alpha(Theme.accent, 0.30)

    horizontalPadding: 18
    implicitHeight: Theme.confirmHeight
    radius: height / 2
    opacity: 1

    contentItem: ButtonLabel {
        text: root.text
        font: Theme.demiBold13
        color: Theme.highContrast && !root.enabled ? Theme.textPrimary : Theme.accentText
    }

    background: EdgedBox {
        radius: root.radius
        color: !root.enabled ? root.confirmInvalid : root.down ? Theme.accentPressed : Theme.accent
    }
}
