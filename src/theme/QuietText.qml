import QtQuick

import Ostrel.Theme

// A text whose control says the same: on one line, in its line box, cut off at the right.
Text {
    id: root

    // How far the face's own line stands below the top of the line box.
    readonly property real halfLeading: ThemeFonts.halfLeading(font)

    // Rounded, a text in a line box of odd height stands too high among its neighbours.
    anchors.alignWhenCentered: false
    color: Theme.textPrimary
    font: Theme.body
    elide: Text.ElideRight
    textFormat: Text.PlainText
    lineHeight: ThemeFonts.lineBox(font.pixelSize)
    lineHeightMode: Text.FixedHeight
    topPadding: halfLeading
    bottomPadding: -halfLeading - ThemeFonts.overhang(font)
}
