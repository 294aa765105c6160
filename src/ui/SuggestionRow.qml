import QtQuick

import Ostrel.Theme

// Offers the web address that is on the clipboard.
BaseButton {
    id: root

    horizontalPadding: Theme.fieldPadding
    implicitHeight: Theme.suggestionHeight

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
        color: root.down ? Theme.suggestionPressed : root.showsHover ? Theme.suggestionHover : Theme.suggestionFill
    }
}
