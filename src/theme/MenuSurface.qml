import QtQuick

import Ostrel.Theme

// The background of a menu.
EdgedBox {
    radius: 9
    color: Theme.surface
    edge: Theme.faint(Theme.accent, 0.14)
}
