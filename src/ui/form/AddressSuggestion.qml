import QtQuick

import Ostrel.Theme

// Suggests the web address on the clipboard.
BaseButton {
    id: root

    readonly property color suggestionFill: Qt.alpha(Theme.accent, 0.06)
    readonly property color suggestionHover: Qt.alpha(Theme.accent, 0.10)
    readonly property color suggestionPressed: Qt.alpha(Theme.accent, 0.14)

    horizontalPadding: Theme.fieldPadding
    implicitHeight: 32

    contentItem: ButtonLabel {
        isCentred: false
        symbol: "doc.on.clipboard"
        symbolSize: 11
        text: root.text
        font: Theme.caption
        color: Theme.accent
    }

    background: EdgedBox {
        radius: root.radius
        color: root.down ? root.suggestionPressed : root.showsHover ? root.suggestionHover : root.suggestionFill
    }
}
