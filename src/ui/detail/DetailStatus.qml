pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The status, the badges if there are any, and when the monitor was last checked: beside them if
// that fits, else below.
Item {
    id: root

    readonly property real lastCheckedGap: 8

    // A monitorDetail, declared as var: compiled ahead of time, its enumerations couldn't be read.
    required property var detail
    readonly property bool isBroken: marks.implicitWidth + Theme.badgeGap + lastChecked.implicitWidth > width

    implicitHeight: isBroken && lastChecked.visible ? lastChecked.y + lastChecked.height : marks.height

    Row {
        id: marks

        spacing: Theme.badgeGap

        StatusPill {
            symbol: root.detail.pillSymbol
            text: root.detail.pillText
            color: ToneColors.of(root.detail.statusTone)
        }

        Row {
            objectName: "badges"
            anchors.verticalCenter: parent.verticalCenter
            visible: badges.count > 0
            spacing: Theme.badgeGap

            Repeater {
                id: badges

                model: root.detail.badges

                Badge {
                    required property var modelData

                    objectName: "badge"
                    symbol: modelData.symbol
                    text: modelData.text
                    color: ToneColors.of(modelData.tone)
                }
            }
        }
    }

    ThemeText {
        id: lastChecked

        objectName: "lastChecked"
        x: root.isBroken ? 0 : root.width - width
        y: root.isBroken ? marks.height + root.lastCheckedGap : (marks.height - height) / 2
        visible: text !== ""
        text: root.detail.lastCheckedText
        font: Theme.footnote
        color: Theme.textSecondary
    }
}
