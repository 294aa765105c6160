import QtQuick

import Ostrel
import Ostrel.Theme

// A monitor in words alone.
Item {
    id: root

    required property MonitorSelection selection

    Column {
        x: Theme.pageMargin
        y: Theme.pageMargin
        width: parent.width - 2 * Theme.pageMargin
        spacing: Theme.tightSpacing

        ThemeText {
            objectName: "pageName"
            width: parent.width
            text: root.selection.name
            font: Theme.displayMedium
        }

        ThemeText {
            width: parent.width
            text: root.selection.address
            elide: Text.ElideMiddle
            font: Theme.regular12
            color: Theme.textSecondary
        }

        ThemeText {
            objectName: "pageState"
            width: parent.width
            text: root.selection.spokenText
        }
    }
}
