pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The four figures of a monitor, each in a card; all in the size at which the longest fits.
Item {
    id: root

    readonly property real statCardHeight: 98

    required property var statistics
    // The distance between the left edges of two neighbouring cards.
    readonly property real step: (width + Theme.spacing) / statistics.length
    readonly property real valueSize: StatisticLayout.valueSize(statistics, Math.floor(step - Theme.spacing) - 2 * Theme.cardPadding, Theme.statUnitGap)

    implicitHeight: root.statCardHeight

    Repeater {
        // A number, so that cards aren't recreated when a figure changes.
        model: root.statistics.length

        CardStyle {
            id: card

            required property int index
            readonly property var statistic: root.statistics[index]

            // On whole pixels, so that the row ends at the same place as the cards below it.
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
