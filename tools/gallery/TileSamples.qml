import QtQuick

import Ostrel.Theme

// Tiles in every state.
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
