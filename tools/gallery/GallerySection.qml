import QtQuick

import Ostrel.Theme

// A heading with samples below it.
Column {
    id: root

    required property string title
    default property alias samples: row.data
    property real gap: Theme.cardPadding

    spacing: Theme.spacing

    ThemeText {
        text: root.title
        font: Theme.sectionLabel
        color: Theme.textSecondary
    }

    Row {
        id: row

        spacing: root.gap
    }
}
