import QtQuick

import Ostrel.Theme

// Pickers, segments, switches and buttons at rest.
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
