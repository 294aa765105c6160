import QtQuick

import Ostrel.Theme

// Quiet capsules and text buttons in every state.
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
