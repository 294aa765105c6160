import QtQuick

import Ostrel
import Ostrel.Theme

// The page of one monitor.
Flickable {
    id: root

    readonly property real statusRowGap: 16

    required property MonitorDetailModel model
    readonly property monitorDetail detail: model.detail
    readonly property Item focused: Window.activeFocusItem

    signal checkNow
    signal editMonitor
    signal getHelp
    signal copyAddress
    signal openAddress

    function scrollPages(pages: real): void {
        contentY = Math.max(0, Math.min(contentY + pages * height, contentHeight - height));
    }

    function holds(item: Item): bool {
        while (item && item !== root)
            item = item.parent;
        return item === root;
    }

    contentWidth: width
    contentHeight: page.height + 2 * Theme.pageMargin
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    // Whatever can have the focus is at the page's top.
    onFocusedChanged: {
        if (holds(focused))
            contentY = 0;
    }

    Binding {
        target: root.model
        property: "isShown"
        value: root.visible && exposure.isExposed
    }

    // Every monitor's page starts at its top.
    Connections {
        target: root.model

        function onMonitorIdChanged(): void {
            root.contentY = 0;
        }
    }

    WindowExposure {
        id: exposure

        window: root.Window.window
    }

    Column {
        id: page

        x: Math.max(Theme.pageMargin, (root.width - width) / 2)
        y: Theme.pageMargin
        width: Math.min(root.width - 2 * Theme.pageMargin, Theme.contentMaximum)

        DetailHeader {
            width: parent.width
            name: root.detail.name
            address: root.detail.address
            url: root.detail.url
            onCheckNow: root.checkNow()
            onEditMonitor: root.editMonitor()
            isWebsite: root.detail.isWebsite
            onGetHelp: root.getHelp()
            onCopyAddress: root.copyAddress()
            onOpenAddress: root.openAddress()
        }

        Item {
            width: parent.width
            height: root.statusRowGap
        }

        DetailStatus {
            width: parent.width
            detail: root.detail
        }

        Item {
            width: parent.width
            height: Theme.sectionSpacing
        }

        Column {
            width: parent.width
            spacing: Theme.spacing

            StatCards {
                width: parent.width
                statistics: root.detail.statistics
            }

            UptimeCard {
                width: parent.width
                timeline: root.detail.timeline
            }

            ResponseCard {
                width: parent.width
                series: root.detail.series
                hasChecks: root.detail.hasRecentChecks
            }

            RecentChecksCard {
                width: parent.width
                checks: root.model.recentChecks
                countText: root.detail.recentCountText
            }
        }
    }

    PageScrollBar {
        parent: root
        page: root
    }
}
