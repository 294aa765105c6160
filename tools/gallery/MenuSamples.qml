import QtQuick

import Ostrel.Theme

// The rows of both menus.
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

                ContextMenuItem {
                    width: Theme.menuMinimumWidth
                    symbol: "arrow.trianglehead.clockwise"
                    text: "Check Now"
                }

                ContextMenuItem {
                    width: Theme.menuMinimumWidth
                    symbol: "pause"
                    text: "Pause"
                    showsHover: true
                }

                ContextMenuItem {
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

                PickerItem {
                    width: Theme.keywordModeWidth
                    text: "Must exist"
                    isCurrent: true
                    highlighted: true
                }

                PickerItem {
                    width: Theme.keywordModeWidth
                    text: "Must not exist"
                    isCurrent: false
                }
            }
        }
    }
}
