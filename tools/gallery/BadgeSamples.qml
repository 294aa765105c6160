import QtQuick

import Ostrel.Theme

// Badges in every tone.
GallerySection {
    title: "BADGES"
    gap: Theme.badgeGap

    Badge {
        symbol: "lock.shield.fill"
        text: "SSL: 61d left"
        color: Theme.statusUp
    }

    Badge {
        symbol: "exclamationmark.magnifyingglass"
        text: "Keyword issue"
        color: Theme.statusDown
    }

    Badge {
        symbol: "speedometer"
        text: "Slow (1532ms)"
        color: Theme.warning
    }

    Badge {
        symbol: "network"
        text: "Port 5432"
        color: Theme.accent
    }
}
