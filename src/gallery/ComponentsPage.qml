pragma ComponentBehavior: Bound

import QtQuick

import Ostrel.Theme

// Every component of the theme in every state.
Rectangle {
    id: root

    readonly property real column: (width - 3 * Theme.pageMargin) / 2

    width: 1396
    height: left.height + 2 * Theme.pageMargin
    color: Theme.background

    Column {
        id: left

        x: Theme.pageMargin
        y: Theme.pageMargin
        width: root.column
        spacing: Theme.sectionSpacing

        GallerySection {
            title: "STATUS DOT"

            GallerySample {
                caption: "up"

                StatusDot {
                    status: MonitorStatus.Up
                    size: 24
                }
            }

            GallerySample {
                caption: "down 0 s"

                StatusDot {
                    status: MonitorStatus.Down
                    size: 24
                }
            }

            GallerySample {
                caption: "0.75 s"

                Item {
                    width: 2.6 * 24
                    height: width

                    PulsingHalo {
                        x: (parent.width - width) / 2
                        y: x
                        restDiameter: 2.4 * 24
                        pulse: false
                        swell: 0.5
                    }

                    Disc {
                        anchors.fill: parent
                        diameter: 24
                        color: Theme.statusDown
                    }
                }
            }

            GallerySample {
                caption: "paused, pending"

                StatusDot {
                    status: MonitorStatus.Pending
                    size: 24
                }
            }

            Repeater {
                model: [6, 8]

                GallerySample {
                    id: sample

                    required property int modelData

                    caption: "size " + modelData

                    Row {
                        spacing: Theme.tightSpacing

                        Repeater {
                            model: [MonitorStatus.Up, MonitorStatus.Down, MonitorStatus.Paused]

                            StatusDot {
                                required property int modelData

                                status: modelData
                                size: sample.modelData
                            }
                        }
                    }
                }
            }
        }

        GallerySection {
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

                    width: (root.column - 3 * Theme.spacing) / 4

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

        GallerySection {
            title: "CHIPS"

            GallerySample {
                caption: "rest"

                Chip {
                    text: "30s"
                }
            }

            GallerySample {
                caption: "hover"

                Chip {
                    text: "1m"
                    showsHover: true
                }
            }

            GallerySample {
                caption: "pressed"

                Chip {
                    text: "1m"
                    down: true
                }
            }

            GallerySample {
                caption: "selected"

                Chip {
                    text: "5m"
                    isSelected: true
                }
            }

            GallerySample {
                caption: "focus"

                Chip {
                    text: "15m"
                    isSelected: true
                    showsFocus: true
                }
            }

            GallerySample {
                caption: "disabled"

                Chip {
                    text: "1h"
                    enabled: false
                }
            }
        }

        GallerySection {
            title: "TILES"

            GallerySample {
                caption: "rest"

                Tile {
                    text: "Port"
                    symbol: "network"
                }
            }

            GallerySample {
                caption: "hover"

                Tile {
                    text: "Port"
                    symbol: "network"
                    showsHover: true
                }
            }

            GallerySample {
                caption: "pressed"

                Tile {
                    text: "Port"
                    symbol: "network"
                    down: true
                }
            }

            GallerySample {
                caption: "selected"

                Tile {
                    text: "Website"
                    symbol: "globe"
                    isSelected: true
                }
            }

            GallerySample {
                caption: "focus"

                Tile {
                    text: "Website"
                    symbol: "globe"
                    isSelected: true
                    showsFocus: true
                }
            }
        }

        GallerySection {
            title: "ICON BUTTON"

            GallerySample {
                caption: "rest"

                IconButton {
                    symbol: "arrow.trianglehead.clockwise"
                    helpText: "Check now"
                }
            }

            GallerySample {
                caption: "hover"

                IconButton {
                    symbol: "arrow.trianglehead.clockwise"
                    helpText: "Check now"
                    showsHover: true
                }
            }

            GallerySample {
                caption: "pressed"

                IconButton {
                    symbol: "arrow.trianglehead.clockwise"
                    helpText: "Check now"
                    down: true
                }
            }

            GallerySample {
                caption: "focus"

                IconButton {
                    symbol: "arrow.trianglehead.clockwise"
                    helpText: "Check now"
                    showsFocus: true
                }
            }

            GallerySample {
                caption: "disabled"

                IconButton {
                    symbol: "gearshape"
                    helpText: "Edit monitor"
                    enabled: false
                }
            }

            GallerySample {
                caption: "help text"

                Item {
                    width: help.width
                    height: Theme.iconButtonSize

                    HelpText {
                        id: help

                        y: 0
                        delay: 0
                        text: "Check now"
                        visible: true
                    }
                }
            }
        }

        GallerySection {
            title: "BADGES"
            gap: Theme.badgeGap

            Badge {
                symbol: "lock.shield.fill"
                text: "SSL: 61d left"
                color: Theme.statusUp
            }

            Badge {
                symbol: "exclamationmark.magnifyingglass"
                text: "Keyword issue"
                color: Theme.statusDown
            }

            Badge {
                symbol: "speedometer"
                text: "Slow (1532ms)"
                color: Theme.warning
            }

            Badge {
                symbol: "network"
                text: "Port 5432"
                color: Theme.accent
            }
        }

        GallerySection {
            title: "PENDING RING AND APP ICON"

            PendingRing {}

            AppIcon {
                size: Theme.rowIconSize
            }

            AppIcon {
                size: Theme.headerIconSize
            }
        }
    }

    Column {
        x: 2 * Theme.pageMargin + root.column
        y: Theme.pageMargin
        width: root.column
        spacing: Theme.sectionSpacing

        GallerySection {
            title: "PILL BUTTON"

            GallerySample {
                caption: "primary"

                PillButtonStyle {
                    text: "Add Monitor"
                    symbol: "plus"
                }
            }

            GallerySample {
                caption: "pressed"

                PillButtonStyle {
                    text: "Add Monitor"
                    symbol: "plus"
                    down: true
                }
            }

            GallerySample {
                caption: "keyboard focus"

                PillButtonStyle {
                    text: "Add Monitor"
                    symbol: "plus"
                    showsFocus: true
                }
            }
        }

        GallerySection {
            title: "QUIET PILL, TEXT BUTTON"

            GallerySample {
                caption: "secondary"

                PillButtonStyle {
                    text: "Not now"
                    isSecondary: true
                }
            }

            GallerySample {
                caption: "pressed"

                PillButtonStyle {
                    text: "Not now"
                    isSecondary: true
                    down: true
                }
            }

            GallerySample {
                caption: "rest"

                TextButton {
                    text: "Cancel"
                }
            }

            GallerySample {
                caption: "hover"

                TextButton {
                    text: "Cancel"
                    showsHover: true
                }
            }

            GallerySample {
                caption: "pressed"

                TextButton {
                    text: "Cancel"
                    down: true
                }
            }

            GallerySample {
                caption: "disclosure"

                TextButton {
                    text: "Advanced"
                    symbol: "chevron.down"
                    face: Theme.caption
                }
            }
        }

        GallerySection {
            title: "FIELD"
            gap: Theme.spacing

            GallerySample {
                caption: "rest"

                Field {
                    width: 150
                    height: Theme.addressFieldHeight
                    spokenName: "Address"
                    placeholderText: "example.org"
                    font: Theme.system13
                }
            }

            GallerySample {
                caption: "hover"

                Field {
                    width: 150
                    height: Theme.addressFieldHeight
                    spokenName: "Address"
                    placeholderText: "example.org"
                    font: Theme.system13
                    showsHover: true
                }
            }

            GallerySample {
                caption: "focus"

                Field {
                    width: 150
                    height: Theme.addressFieldHeight
                    spokenName: "Address"
                    text: "bakery.ex"
                    font: Theme.system13
                    focus: true
                    showsFocus: true
                }
            }

            GallerySample {
                caption: "valid"

                Field {
                    width: 190
                    height: Theme.addressFieldHeight
                    spokenName: "Address"
                    text: "bakery.example"
                    font: Theme.system13
                    trailingSymbol: "checkmark.circle.fill"
                    trailingName: "Valid"
                }
            }
        }

        GallerySection {
            title: "CONTROLS"
            gap: Theme.spacing

            GallerySample {
                caption: "picker"

                Picker {
                    spokenName: "Keyword"
                    model: ["Must exist", "Must not exist"]
                }
            }

            GallerySample {
                caption: "segments"

                SegmentedPicker {
                    spokenName: "Method"
                    choices: ["GET", "HEAD", "POST"]
                }
            }

            GallerySample {
                caption: "off"

                Toggle {
                    spokenName: "Launch at Login"
                }
            }

            GallerySample {
                caption: "on"

                Toggle {
                    spokenName: "Launch at Login"
                    checked: true
                }
            }

            GallerySample {
                caption: "quiet button"

                QuietButton {
                    text: "Reveal in Finder"
                }
            }
        }

        GallerySection {
            title: "CONTROLS WITH FOCUS, DISABLED, CONFIRM"
            gap: Theme.cardPadding

            GallerySample {
                caption: "focus"

                Picker {
                    spokenName: "Keyword"
                    model: ["Must exist", "Must not exist"]
                    showsFocus: true
                }
            }

            GallerySample {
                caption: "focus"

                Toggle {
                    spokenName: "Launch at Login"
                    checked: true
                    showsFocus: true
                }
            }

            GallerySample {
                caption: "disabled"

                Toggle {
                    spokenName: "Launch at Login"
                    checked: true
                    enabled: false
                }
            }

            GallerySample {
                caption: "focus"

                QuietButton {
                    text: "Reveal in Finder"
                    showsFocus: true
                }
            }

            GallerySample {
                caption: "hover"

                QuietButton {
                    text: "Reveal in Finder"
                    showsHover: true
                }
            }

            GallerySample {
                caption: "confirm"

                ConfirmButton {
                    text: "Save"
                }
            }

            GallerySample {
                caption: "not valid yet"

                ConfirmButton {
                    text: "Save"
                    enabled: false
                }
            }
        }

        GallerySection {
            title: "MENU"

            GallerySample {
                caption: "row menu"

                MenuSurface {
                    width: menuRows.width + 2 * Theme.menuPadding
                    height: menuRows.height + 2 * Theme.menuPadding

                    Column {
                        id: menuRows

                        x: Theme.menuPadding
                        y: Theme.menuPadding

                        RowMenuItem {
                            width: Theme.menuMinimumWidth
                            symbol: "arrow.trianglehead.clockwise"
                            text: "Check Now"
                        }

                        RowMenuItem {
                            width: Theme.menuMinimumWidth
                            symbol: "pause"
                            text: "Pause"
                            showsHover: true
                        }

                        RowMenuItem {
                            width: Theme.menuMinimumWidth
                            symbol: "trash"
                            text: "Delete"
                            isDestructive: true
                        }
                    }
                }
            }

            GallerySample {
                caption: "picker menu"

                MenuSurface {
                    width: pickerRows.width + 2 * Theme.menuPadding
                    height: pickerRows.height + 2 * Theme.menuPadding

                    Column {
                        id: pickerRows

                        x: Theme.menuPadding
                        y: Theme.menuPadding

                        PickerRow {
                            width: Theme.keywordModeWidth
                            text: "Must exist"
                            isCurrent: true
                            highlighted: true
                        }

                        PickerRow {
                            width: Theme.keywordModeWidth
                            text: "Must not exist"
                            isCurrent: false
                        }
                    }
                }
            }
        }
    }
}
