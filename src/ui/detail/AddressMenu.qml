import QtQuick

import Ostrel.Theme

// What can be done with a monitor's address.
ContextMenu {
    id: root

    // Whether a browser can open it.
    required property bool isWebsite

    signal copyRequested
    signal openRequested

    ContextMenuItem {
        text: qsTr("Copy Address")
        onTriggered: root.copyRequested()
    }

    ContextMenuItem {
        text: qsTr("Open in Browser")
        visible: root.isWebsite
        height: visible ? implicitHeight : 0
        activeFocusOnTab: visible
        onTriggered: root.openRequested()
    }
}
