import QtQuick

import Ostrel.Theme

// What the sidebar's rows share: the box that shows hover, selection and keyboard focus.
Item {
    id: root

    readonly property color rowHover: Qt.alpha(Theme.accent, 0.04)
    readonly property color rowPressed: Qt.alpha(Theme.accent, 0.08)
    readonly property color rowSelectedEdge: Theme.faint(Theme.accent, 0.14)
    readonly property color rowSelectedEdgeInactive: Theme.faint(Theme.accent, 0.06)
    readonly property real selectionBarWidth: 3
    readonly property real selectionBarOffset: 3

    property bool isSelected: false
    // Whether the list has the focus and its keys go to this row.
    property bool isFocused: false
    property bool showsFocus: false
    // Whether the row's menu is open: the row must show that the menu belongs to it.
    property bool hasMenu: false
    property string spokenName: ""
    default property alias contents: box.data
    property bool showsHover: area.containsMouse
    property bool showsPress: area.pressed
    property bool isWindowActive: true
    readonly property color nameColor: isSelected && isWindowActive ? Theme.accent : Theme.textPrimary
    // The opaque colour under the row's contents.
    readonly property color ground: isSelected ? Theme.surface : Theme.over(wash, Theme.background)
    // Disabled while it fades out.
    readonly property color wash: !enabled ? Theme.none : showsPress ? root.rowPressed : showsHover || hasMenu ? root.rowHover : Theme.none

    signal chosen
    signal deselected
    // At a position in the row.
    signal menuRequested(x: real, y: real)

    Accessible.role: Accessible.ListItem
    Accessible.name: spokenName
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.focusable: true
    Accessible.focused: isFocused
    Accessible.onPressAction: chosen()
    // Only an assistive tool moves the focus to a row; the list handles it.
    onActiveFocusChanged: {
        if (activeFocus)
            chosen();
    }

    // Around the contents: their help texts would keep the pointer from an area beneath them.
    MouseArea {
        id: area

        anchors.fill: parent
        anchors.leftMargin: Theme.rowMargin
        anchors.rightMargin: Theme.rowMargin
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        hoverEnabled: true
        onPressed: mouse => {
            if (mouse.button === Qt.RightButton)
                root.menuRequested(mouse.x + area.x, mouse.y);
        }
        onClicked: mouse => {
            if (mouse.button !== Qt.LeftButton)
                return;
            if (mouse.modifiers & Qt.ControlModifier && root.isSelected)
                root.deselected();
            else
                root.chosen();
        }

        EdgedBox {
            id: box

            anchors.fill: parent
            radius: Theme.cornerRadiusSmall
            color: root.isSelected ? Theme.surface : root.wash
            edge: {
                if (!root.isSelected)
                    return Theme.none;
                return root.isWindowActive ? root.rowSelectedEdge : root.rowSelectedEdgeInactive;
            }
        }
    }

    Rectangle {
        x: area.x - root.selectionBarOffset - width
        anchors.verticalCenter: area.verticalCenter
        visible: root.isSelected
        width: root.selectionBarWidth
        height: 20
        radius: root.selectionBarWidth / 2
        color: root.isWindowActive ? Theme.accent : Theme.statusMuted
    }

    FocusRing {
        anchors.fill: area
        visible: root.showsFocus
        isInside: true
    }
}
