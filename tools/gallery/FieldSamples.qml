import QtQuick

import Ostrel.Theme

// Fields in every state.
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
