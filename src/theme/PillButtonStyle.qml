import QtQuick

import Ostrel.Theme

// The capsule-shaped button of a page's main action, or the quiet one beside it.
BaseButton {
    id: root

    readonly property color pillQuiet: Qt.alpha(Theme.ink, 0.03)
    readonly property color pillQuietPressed: Qt.alpha(Theme.ink, 0.06)
    readonly property real pillLabelGap: 6

    property bool isSecondary: false
    property string symbol: ""
    property real symbolSize: 12

    horizontalPadding: 24
    verticalPadding: Theme.spacing
    radius: height / 2

    contentItem: ButtonLabel {
        symbol: root.symbol
        symbolSize: root.symbolSize
        gap: root.pillLabelGap
        text: root.text
        font: Theme.demiBold15
        color: root.isSecondary ? Theme.textSecondary : Theme.accentText
    }

    background: EdgedBox {
        radius: root.radius
        color: {
            if (root.isSecondary)
                return root.down ? root.pillQuietPressed : root.pillQuiet;
            return root.down ? Theme.accentPressed : Theme.accent;
        }
    }
}
