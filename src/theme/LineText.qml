import QtQuick

import Ostrel.Theme

// A text on one line, in its line box, elided at the right. A text that is meant to wrap has to say
// so, and on how many lines at most.
Text {
    id: root

    // How far the font's own line is below the top of the line box.
    readonly property real halfLeading: ThemeFonts.halfLeading(font)

    // With rounding, a text in a line box of odd height would be too high among its neighbours.
    anchors.alignWhenCentered: false
    color: Theme.textPrimary
    font: Theme.body
    // Also for names that are written from right to left: their columns begin at the left.
    horizontalAlignment: Text.AlignLeft
    elide: Text.ElideRight
    maximumLineCount: 1
    textFormat: Text.PlainText
    renderType: ScreenGrid.isCoarse ? Text.NativeRendering : Text.QtRendering
    lineHeight: ThemeFonts.lineBox(font.pixelSize)
    lineHeightMode: Text.FixedHeight
    topPadding: halfLeading
    bottomPadding: -halfLeading - ThemeFonts.overhang(font)
}
