import QtQuick

import Ostrel.Theme

// The main action's button in every state.
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
