import QtQuick

import Ostrel.Theme

// A label over the controls it names.
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
