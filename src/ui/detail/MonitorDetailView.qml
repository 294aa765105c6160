import QtQuick

import Ostrel
import Ostrel.Theme

// The page of one monitor.
Flickable {
    id: root

    readonly property real statusRowGap: 16

    required property MonitorDetailModel model
    readonly property monitorDetail detail: model.detail
    readonly property PageKeys keys: pageKeys

    signal checkNow
    signal editMonitor
    signal getHelp
    signal copyAddress
    signal openAddress

    contentWidth: width
    contentHeight: page.height + 2 * Theme.pageMargin
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    interactive: !mouse.isPressed
    Keys.forwardTo: [pageKeys]

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

    MousePress {
        id: mouse

        page: root
    }

    // A click where there is nothing to click gives the page the keys.
    MouseArea {
        parent: root
        anchors.fill: parent
        z: -1
        onPressed: root.forceActiveFocus(Qt.MouseFocusReason)
    }

    PageKeys {
        id: pageKeys

        page: root
    }

    FocusFollower {
        page: root
        margin: Theme.spacingSmall
    }

    Column {
        id: page

        x: Math.max(Theme.pageMargin, Theme.centred(root.width, width))
        y: Theme.pageMargin
        width: Math.min(root.width - 2 * Theme.pageMargin, Theme.contentMaximum)

        DetailHeader {
            width: parent.width
            name: root.detail.name
            address: root.detail.address
            url: root.detail.url
            isChecking: root.model.isChecking
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
                clock: root.model.clock
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
