import QtQuick

import Ostrel.Theme

// A label above the controls that it names.
Column {
    id: root

    required property string label

    spacing: Theme.sheetLabelGap

    ThemeText {
        width: parent.width
        text: root.label
        font: Theme.sectionLabel
        color: Theme.textSecondary
    }
}
