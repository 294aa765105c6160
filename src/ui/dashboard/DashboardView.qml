pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The overview of all monitors.
Item {
    id: root

    required property MonitorListModel monitors
    required property DashboardModel model
    required property MonitorSelection selection
    readonly property real contentWidth: Math.min(Theme.contentMaximum, width - 2 * Theme.pageMargin)
    readonly property real contentX: Theme.centred(width, contentWidth)
    readonly property PageKeys keys: pageKeys

    signal addRequested
    // A card has been chosen; its monitor is selected.
    signal cardChosen

    EmptyDashboard {
        objectName: "empty"
        anchors.fill: parent
        visible: root.model.isEmpty
        onAddRequested: root.addRequested()
    }

    FocusVoice {
        item: grid.activeFocus ? (grid.currentItem as DashboardCell)?.card ?? null : null
    }

    // Two cells fill the page's width, so that it scrolls wherever the pointer is; the cards are
    // placed in them towards the page's middle.
    GridView {
        id: grid

        function choose(row: int): void {
            root.selection.selectRow(row);
            root.cardChosen();
        }

        objectName: "grid"
        anchors.fill: parent
        visible: !root.model.isEmpty
        clip: true
        // A card is created in less than a frame's time, so none is cached.
        cacheBuffer: 0
        activeFocusOnTab: visible
        boundsBehavior: Flickable.StopAtBounds
        interactive: !mouse.isPressed
        cellWidth: width / 2
        cellHeight: Theme.monitorCardHeight + Theme.spacing
        // The banner is above the cells and scrolls with them.
        topMargin: Theme.pageMargin + Theme.bannerHeight + Theme.sectionSpacing
        bottomMargin: Theme.pageMargin - Theme.spacing
        model: root.monitors
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Dashboard")
        // The arrows move among the cards as long as there is one to move to.
        Keys.priority: Keys.AfterItem
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Home)
                currentIndex = 0;
            else if (event.key === Qt.Key_End)
                currentIndex = count - 1;
            pageKeys.take(event);
        }
        Keys.onReturnPressed: choose(currentIndex)
        Keys.onEnterPressed: choose(currentIndex)
        Keys.onSpacePressed: choose(currentIndex)

        MousePress {
            id: mouse

            page: grid
        }

        StatusBannerView {
            objectName: "banner"
            parent: grid.contentItem
            x: root.contentX
            y: -Theme.sectionSpacing - height
            width: root.contentWidth
            height: implicitHeight
            model: root.model
        }

        delegate: DashboardCell {
            id: cell

            width: grid.cellWidth
            contentX: root.contentX
            contentWidth: root.contentWidth
            showsFocus: GridView.isCurrentItem && grid.activeFocus
            onChosen: grid.choose(cell.index)
            onFocusRequested: {
                grid.currentIndex = cell.index;
                grid.forceActiveFocus(Qt.OtherFocusReason);
            }
        }
    }

    PageKeys {
        id: pageKeys

        page: grid
    }

    FocusFollower {
        page: grid
        current: grid.currentItem
        margin: Theme.spacingSmall
    }

    PageScrollBar {
        page: grid
    }
}
