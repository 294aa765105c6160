import QtQuick

import Ostrel.Theme

// A title over a card of rows.
Column {
    id: root

    readonly property real settingsTitleInset: 16

    required property string title
    default property alias rows: column.data

    spacing: 8

    ThemeText {
        x: root.settingsTitleInset
        text: root.title
        font: Theme.headline
        Accessible.role: Accessible.Heading
    }

    CardStyle {
        width: parent.width
        padding: Theme.hairlineWidth

        Column {
            id: column

            width: parent.width
        }
    }
}
