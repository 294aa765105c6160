pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The four figures of a monitor, each in a card; all as large as the one with the least room.
Item {
    id: root

    readonly property real statCardHeight: 98

    required property var statistics
    // From the left edge of one card to that of the next.
    readonly property real step: (width + Theme.spacing) / statistics.length
    readonly property real valueSize: StatisticLayout.valueSize(statistics, Math.floor(step - Theme.spacing) - 2 * Theme.cardPadding, Theme.statUnitGap)

    implicitHeight: root.statCardHeight

    Repeater {
        // By number, so that another figure makes no other card.
        model: root.statistics.length

        CardStyle {
            id: card

            required property int index
            readonly property var statistic: root.statistics[index]

            // On whole pixels, so that the row ends where the cards below it do.
            x: Math.round(index * root.step)
            width: Math.round((index + 1) * root.step) - Theme.spacing - x
            height: root.statCardHeight

            StatCard {
                width: parent.width
                title: card.statistic.title
                value: card.statistic.value
                unit: card.statistic.unit
                color: ToneColors.of(card.statistic.tone)
                valueSize: root.valueSize
            }
        }
    }
}
