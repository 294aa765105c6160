import QtQuick

import Ostrel.Theme

// The ground of a menu.
EdgedBox {
    radius: 9
    color: Theme.surface
    edge: Qt.alpha(Theme.accent, 0.14)
}
