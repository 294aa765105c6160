import QtQuick

import Ostrel.Theme

// The ground of a menu.
EdgedBox {
    radius: Theme.menuRadius
    color: Theme.surface
    edge: Theme.menuEdge
}
