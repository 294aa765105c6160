import QtQuick

import Ostrel.Theme

// Chips in every state.
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
