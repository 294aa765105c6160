pragma ComponentBehavior: Bound

import QtQuick

import Ostrel.Theme

// Every symbol at the sizes it is used at.
Rectangle {
    id: root

    readonly property real spacingLarge: 24

    readonly property var names: ["bird.fill", "checkmark.circle.fill", "xmark.circle.fill", "exclamationmark.triangle.fill", "moon.circle.fill", "circle.dotted", "circle.dotted.circle", "lock.shield.fill", "text.magnifyingglass", "exclamationmark.magnifyingglass", "speedometer", "network", "globe", "gearshape", "questionmark.circle", "arrow.trianglehead.clockwise", "pause", "play", "trash", "plus", "doc.on.clipboard", "waveform.path", "chevron.right", "chevron.down", "chevron.up.chevron.down", "checkmark", "xmark", "slider.horizontal"]

    width: 1320
    height: page.height + 2 * Theme.pageMargin
    color: Theme.background

    Column {
        id: page

        x: Theme.pageMargin
        y: Theme.pageMargin
        spacing: Theme.sectionSpacing

        Grid {
            columns: 4
            spacing: Theme.spacingSmall

            Repeater {
                model: root.names

                CardStyle {
                    id: card

                    required property string modelData

                    width: (root.width - 2 * Theme.pageMargin - 3 * Theme.spacingSmall) / 4
                    height: Theme.headerHeight + Theme.cardPadding

                    Row {
                        height: parent.height
                        spacing: Theme.spacing

                        Repeater {
                            model: [12, 16, 22, 28]

                            Symbol {
                                required property int modelData

                                anchors.verticalCenter: parent.verticalCenter
                                width: modelData
                                height: modelData
                                name: card.modelData
                                color: Theme.ink
                            }
                        }

                        ThemeText {
                            anchors.verticalCenter: parent.verticalCenter
                            text: card.modelData
                            font: Theme.regular10
                            color: Theme.textSecondary
                        }
                    }
                }
            }
        }

        Row {
            spacing: root.spacingLarge

            Repeater {
                model: [16, 22, 24, 32, 48, 64, 128]

                Symbol {
                    required property int modelData

                    anchors.bottom: parent.bottom
                    width: modelData
                    height: modelData
                    name: "app-icon"
                }
            }
        }
    }
}
