import QtQuick

import Ostrel.Theme

// The application's icon on its plate, without the margin that desktops expect around it.
Item {
    id: root

    required property real size
    readonly property real plateShare: 464 / 512

    implicitWidth: size
    implicitHeight: size

    Symbol {
        x: Theme.centred(root.size, width)
        y: Theme.centred(root.size, height)
        width: root.size / root.plateShare
        height: width
        name: "app-icon"
    }
}
