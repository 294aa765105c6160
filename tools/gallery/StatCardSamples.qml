pragma ComponentBehavior: Bound

import QtQuick

import Ostrel.Theme

// Figures in every tone.
GallerySection {
    id: root

    title: "STAT CARD"
    gap: Theme.spacing

    Repeater {
        model: [
            {
                title: "Avg Response",
                value: "187",
                unit: "ms",
                color: Theme.statusUp
            },
            {
                title: "Avg Response",
                value: "--",
                unit: "",
                color: Theme.textSecondary
            },
            {
                title: "Uptime 7d",
                value: "97.1",
                unit: "%",
                color: Theme.warning
            },
            {
                title: "Uptime 30d",
                value: "91.3",
                unit: "%",
                color: Theme.statusDown
            }
        ]

        CardStyle {
            id: card

            required property var modelData

            width: (root.width - 3 * Theme.spacing) / 4

            StatCard {
                width: parent.width
                title: card.modelData.title
                value: card.modelData.value
                unit: card.modelData.unit
                color: card.modelData.color
            }
        }
    }
}
