pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Gallery
import Ostrel.Theme

// The rows of the sidebar in every state.
Rectangle {
    id: root

    readonly property real columnWidth: Theme.sidebarWidth - Theme.hairlineWidth

    width: states.width + 2 * Theme.pageMargin
    height: states.height + 2 * Theme.pageMargin
    color: Theme.background
    Component.onCompleted: Theme.reducedMotion = true

    Row {
        id: states

        x: Theme.pageMargin
        y: Theme.pageMargin

        Repeater {
            model: [
                {
                    title: "AT REST"
                },
                {
                    title: "HOVER",
                    showsHover: true
                },
                {
                    title: "PRESSED",
                    showsPress: true
                },
                {
                    title: "SELECTED",
                    isSelected: true
                },
                {
                    title: "SELECTED, WINDOW INACTIVE",
                    isSelected: true,
                    isInactive: true
                },
                {
                    title: "SELECTED, KEYBOARD FOCUS",
                    isSelected: true,
                    showsFocus: true
                }
            ]

            Column {
                id: column

                required property var modelData

                width: root.columnWidth
                spacing: Theme.spacing

                ThemeText {
                    x: Theme.rowMargin
                    text: column.modelData.title
                    font: Theme.sectionLabel
                    color: Theme.textSecondary
                }

                Repeater {
                    model: canned.models.monitors

                    MonitorRowView {
                        width: root.columnWidth
                        isSelected: column.modelData.isSelected ?? false
                        showsHover: column.modelData.showsHover ?? false
                        showsPress: column.modelData.showsPress ?? false
                        showsFocus: column.modelData.showsFocus ?? false
                        isWindowActive: !(column.modelData.isInactive ?? false)
                    }
                }

                HomeRow {
                    width: root.columnWidth
                    isSelected: column.modelData.isSelected ?? false
                    showsHover: column.modelData.showsHover ?? false
                    showsPress: column.modelData.showsPress ?? false
                    showsFocus: column.modelData.showsFocus ?? false
                    isWindowActive: !(column.modelData.isInactive ?? false)
                }

                AddMonitorButton {
                    x: Theme.rowMargin
                    showsHover: column.modelData.showsHover ?? false
                    down: column.modelData.showsPress ?? false
                    showsFocus: column.modelData.showsFocus ?? false
                }
            }
        }
    }

    CannedWindow {
        id: canned

        sample: "long"
    }
}
