import QtQuick

import Ostrel.Theme

// The same controls with focus and disabled, and the confirming button.
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
