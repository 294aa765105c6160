pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The home row and a row per monitor, as one list: a single tab stop, in which the arrow keys
// move, and typing finds a monitor by its name.
KeyboardItem {
    id: root

    readonly property real rowSpacing: 2
    readonly property real homeRowTop: 12
    readonly property real homeDividerInset: 18
    readonly property int deleteMotion: Theme.reducedMotion ? 0 : 200

    required property MonitorListModel monitors
    required property MonitorSelection selection
    required property AppActions actions

    readonly property bool isWindowActive: Window.active
    // Null until it is first opened.
    property MonitorMenu menu: null

    function walkTo(row: int): void {
        focusReason = Qt.TabFocusReason;
        selection.selectRow(row);
    }

    function openMenu(row: MonitorRowView, x: real, y: real): void {
        if (!menu)
            menu = menuComponent.createObject(root) as MonitorMenu;
        menu.openFor(row, x, y);
    }

    function openSelectedMenu(): void {
        if (list.currentItem)
            openMenu(list.currentItem as MonitorRowView, Theme.rowMargin + Theme.rowInset, list.currentItem.height);
    }

    function deleteSelected(): void {
        if (!selection.showsMonitor)
            return;
        const monitorId = selection.monitorId;
        selection.leave(monitorId);
        actions.deleteMonitor(monitorId);
    }

    function take(): void {
        forceActiveFocus(Qt.MouseFocusReason);
    }

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Monitors")
    onReachedByKey: {
        if (list.currentItem)
            place.reveal(list.currentItem, 0);
    }
    Keys.forwardTo: [keys]

    MonitorListKeys {
        id: keys

        monitors: root.monitors
        selection: root.selection
        onWalked: row => root.walkTo(row)
        onMenuRequested: root.openSelectedMenu()
        onDeleteRequested: root.deleteSelected()
    }

    FocusVoice {
        item: !root.activeFocus ? null : root.selection.showsMonitor ? list.currentItem : home
    }

    HomeRow {
        id: home

        objectName: "home"
        y: root.homeRowTop
        width: parent.width
        isSelected: !root.selection.showsMonitor
        isFocused: isSelected && root.activeFocus
        showsFocus: isSelected && root.visualFocus
        isWindowActive: root.isWindowActive
        onChosen: {
            root.take();
            root.selection.clear();
        }
    }

    Hairline {
        id: divider

        anchors.top: home.bottom
        anchors.topMargin: Theme.spacingSmall
        x: root.homeDividerInset
        width: parent.width - 2 * x
    }

    MouseArea {
        objectName: "emptySpace"
        anchors.fill: list
        onClicked: mouse => {
            // Between two rows there is nothing to click.
            if (mouse.y < list.contentHeight)
                return;
            root.take();
            root.selection.clear();
        }
    }

    ListView {
        id: list

        objectName: "list"
        anchors.top: divider.bottom
        anchors.topMargin: Theme.spacingSmall
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        // A row is created in less than a frame's time, so none is cached.
        cacheBuffer: 0
        spacing: root.rowSpacing
        // If the list fits, the space under it is left to the area behind it.
        interactive: contentHeight > height && !mouse.isPressed
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        highlightMoveDuration: 0
        model: root.monitors
        currentIndex: root.selection.row

        MousePress {
            id: mouse

            page: list
        }

        delegate: MonitorRowView {
            id: row

            // A deleted monitor's row, which fades out, has none.
            readonly property bool hasPlace: index >= 0

            width: ListView.view.width
            enabled: hasPlace
            isSelected: hasPlace && root.selection.row === index
            isFocused: isSelected && root.activeFocus
            showsFocus: isSelected && root.visualFocus
            hasMenu: root.menu?.openRow === row
            isWindowActive: root.isWindowActive
            onChosen: {
                root.take();
                root.selection.monitorId = monitorId;
            }
            onDeselected: {
                root.take();
                root.selection.clear();
            }
            onMenuRequested: (x, y) => root.openMenu(row, x, y)
        }

        remove: Transition {
            NumberAnimation {
                property: "opacity"
                to: 0
                duration: root.deleteMotion
                easing.type: Easing.OutQuad
            }
        }
        removeDisplaced: Transition {
            NumberAnimation {
                property: "y"
                duration: root.deleteMotion
                easing.type: Easing.OutQuad
            }
        }
    }

    PagePlace {
        id: place

        page: list
    }

    PageScrollBar {
        page: list
    }

    Component {
        id: menuComponent

        MonitorMenu {
            actions: root.actions
            onClosed: root.forceActiveFocus(Qt.PopupFocusReason)
            onLeft: monitorId => root.selection.leave(monitorId)
        }
    }
}
