import QtQuick

import Ostrel.Theme

// Every component of the theme in every state.
Rectangle {
    id: root

    readonly property real column: (width - 3 * Theme.pageMargin) / 2

    width: 1396
    height: left.height + 2 * Theme.pageMargin
    color: Theme.background

    Column {
        id: left

        x: Theme.pageMargin
        y: Theme.pageMargin
        width: root.column
        spacing: Theme.sectionSpacing

        StatusDotSamples {}

        StatCardSamples {
            width: parent.width
        }

        ChipSamples {}
        TileSamples {}
        IconButtonSamples {}
        BadgeSamples {}
        PendingAndIconSamples {}
    }

    Column {
        x: 2 * Theme.pageMargin + root.column
        y: Theme.pageMargin
        width: root.column
        spacing: Theme.sectionSpacing

        PillButtonSamples {}
        QuietButtonSamples {}
        FieldSamples {}
        ControlSamples {}
        ControlStateSamples {}
        MenuSamples {}
    }
}
