pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The four figures of a monitor, each in a card; all as large as the one with the least room.
Row {
    id: root

    required property var statistics
    readonly property real cardWidth: (width - (statistics.length - 1) * spacing) / statistics.length
    readonly property real valueSize: StatisticLayout.valueSize(statistics, cardWidth - 2 * Theme.cardPadding, Theme.statUnitGap)

    spacing: Theme.spacing

    Repeater {
        model: root.statistics

        CardStyle {
            id: card

            required property var modelData

            width: root.cardWidth
            height: Theme.statCardHeight

            StatCard {
                width: parent.width
                title: card.modelData.title
                value: card.modelData.value
                unit: card.modelData.unit
                color: ToneColors.of(card.modelData.tone)
                valueSize: root.valueSize
            }
        }
    }
}
