import QtQuick

import Ostrel.Theme

// A separator line, horizontal or vertical: set a width or a height. It has the same number of
// screen pixels everywhere, unlike a length in the layout at fractional scales.
EdgedBox {
    id: root

    readonly property real pixelRatio: Screen.devicePixelRatio
    readonly property real thickness: Math.max(1, Math.floor(Theme.hairlineWidth * pixelRatio)) / pixelRatio

    implicitWidth: thickness
    implicitHeight: thickness
    color: Theme.hairline
}
