pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The newest checks of a monitor.
CardStyle {
    id: root

    readonly property real checkHeadGap: 6

    required property RecentChecksModel checks
    required property string countText

    implicitHeight: list.y + list.height + 2 * padding - (rows.count > 0 ? padding - Theme.spacingSmall : root.checkHeadGap)

    ThemeText {
        id: title

        text: qsTr("Recent Checks")
        font: Theme.headline
        Accessible.role: Accessible.Heading
    }

    ThemeText {
        objectName: "count"
        anchors.left: title.right
        anchors.leftMargin: Theme.spacingSmall
        anchors.baseline: title.baseline
        text: root.countText
        font: Theme.label
        color: Theme.textTertiary
    }

    Column {
        id: list

        anchors.top: title.bottom
        anchors.topMargin: root.checkHeadGap
        width: parent.width
        Accessible.role: Accessible.List
        Accessible.name: title.text
        Accessible.ignored: rows.count === 0

        Repeater {
            id: rows

            objectName: "rows"
            model: root.checks

            RecentCheckRow {
                width: list.width
            }
        }
    }
}
