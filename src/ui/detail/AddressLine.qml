pragma ComponentBehavior: Bound

import QtQuick

import Ostrel.Theme

// The address of a monitor, with a menu.
KeyboardItem {
    id: root

    required property string text
    required property bool isWebsite
    // Null until it is first opened.
    property AddressMenu menu: null
    // Gets the keyboard focus back when the menu closes.
    property Item opener: null

    signal copyRequested
    signal openRequested

    function openMenu(x: real, y: real): void {
        if (!menu)
            menu = menuComponent.createObject(root) as AddressMenu;
        opener = Window.activeFocusItem;
        menu.popup(root, x, y);
    }

    function openMenuBelow(): void {
        openMenu(0, height);
    }

    // Found by name. As a handler, the action would be offered twice.
    function accessiblePressAction(): void {
        openMenuBelow();
    }

    implicitWidth: label.implicitWidth
    implicitHeight: label.implicitHeight
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: qsTr("Address")
    Keys.onMenuPressed: openMenuBelow()
    Keys.onReturnPressed: openMenuBelow()
    Keys.onEnterPressed: openMenuBelow()
    Keys.onSpacePressed: openMenuBelow()
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier;
        if (event.accepted)
            openMenuBelow();
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.RightButton
        onPressed: mouse => root.openMenu(mouse.x, mouse.y)

        QuietText {
            id: label

            width: parent.width
            text: root.text
            font: Theme.regular12
            color: Theme.textSecondary
            elide: Text.ElideMiddle
        }
    }

    FocusRing {
        visible: root.visualFocus
        controlRadius: Theme.tightSpacing
    }

    Component {
        id: menuComponent

        AddressMenu {
            title: root.text
            isWebsite: root.isWebsite
            onCopyRequested: root.copyRequested()
            onOpenRequested: root.openRequested()
            onClosed: root.opener?.forceActiveFocus(Qt.PopupFocusReason)
        }
    }
}
