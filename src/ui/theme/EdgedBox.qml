import QtQuick

import Ostrel.Theme

// A rounded box whose edge, if it has one, lies over its fill, inside its outline.
PaintedBox {
    id: root

    color: Theme.none
    edge: Theme.none
    edgeWidth: Theme.hairlineWidth
}
