import QtQuick

import Ostrel.Theme

// A line between things, lying or standing: give it a width or a height. Everywhere of the same
// number of the screen's pixels, which a length in the layout is not at fractional scales.
EdgedBox {
    id: root

    readonly property real pixelRatio: Screen.devicePixelRatio
    readonly property real thickness: Math.max(1, Math.floor(Theme.hairlineWidth * pixelRatio)) / pixelRatio

    implicitWidth: thickness
    implicitHeight: thickness
    color: Theme.hairline
}
