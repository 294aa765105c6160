import QtQuick

import Ostrel.Theme

// The capsule of a page's main action, or the quiet capsule beside it.
BaseButton {
    id: root

    property bool isSecondary: false
    property string symbol: ""
    property real symbolSize: 12

    horizontalPadding: Theme.pillPadding
    verticalPadding: Theme.spacing
    radius: height / 2

    contentItem: ButtonLabel {
        symbol: root.symbol
        symbolSize: root.symbolSize
        gap: Theme.pillLabelGap
        text: root.text
        font: Theme.demiBold15
        color: root.isSecondary ? Theme.textSecondary : Theme.accentText
    }

    background: EdgedBox {
        radius: root.radius
        color: {
            if (root.isSecondary)
                return root.down ? Theme.pillQuietPressed : Theme.pillQuiet;
            return root.down ? Theme.accentPressed : Theme.accent;
        }
    }
}
