import QtQuick

import Ostrel.Theme

// Icon buttons in every state, and a help text.
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
                visible: delay === 0
            }
        }
    }
}
