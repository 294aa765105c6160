import QtQuick

import Ostrel.Theme

// Shows which control has the keyboard focus. Set the control as parent, and bind `visible`.
EdgedBox {
    id: root

    readonly property real focusRingGap: 2

    // The corner radius of the control.
    property real controlRadius: Theme.cornerRadiusSmall
    // Rows and fields have no space around them.
    property bool isInside: false
    readonly property real distance: isInside ? 0 : root.focusRingGap + Theme.focusRingWidth

    anchors.fill: parent
    anchors.margins: -distance
    radius: controlRadius + distance
    edge: Theme.focusEdge
    edgeWidth: Theme.focusRingWidth
}
