import QtQuick

// A button with only a text, optionally with a symbol before it.
BaseButton {
    id: root

    readonly property real advancedGap: 6

    property string symbol: ""
    property font face: Theme.body

    horizontalPadding: 12
    implicitHeight: Theme.confirmHeight

    contentItem: ButtonLabel {
        symbol: root.symbol
        gap: root.advancedGap
        text: root.text
        font: root.face
        color: root.down ? Theme.accent : root.showsHover ? Theme.textPrimary : Theme.textSecondary
    }
}
