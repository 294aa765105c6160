import QtQuick

// Notices the mouse that is pressed on a page, and leaves it to the items there. A page that isn't
// interactive meanwhile is scrolled by a finger and the wheel, but not dragged by the mouse.
Item {
    required property Flickable page
    readonly property alias isPressed: handler.active

    parent: page
    anchors.fill: parent
    // Above what takes the press.
    z: 1

    PointHandler {
        id: handler

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
}
