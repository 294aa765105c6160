import QtQuick

import Ostrel
import Ostrel.Theme

// The window's two columns, and what opens over them.
Item {
    id: root

    required property MonitorListModel monitors
    required property DashboardOverview overview
    required property AppActions actions
    property alias selectedMonitorId: chosen.monitorId
    property bool showingAddSheet: false

    // The place of the sheet that adds a monitor; shown over both columns while showingAddSheet.
    property Component addSheet: null
    // Whether somebody answers settingsRequested.
    property bool hasSettings: false
    readonly property bool canAdd: addSheet !== null

    signal settingsRequested

    function checkSelected(): void {
        actions.checkNow(selectedMonitorId);
    }

    MonitorSelection {
        id: chosen

        monitors: root.monitors
    }

    SidebarWidth {
        id: sidebarWidth

        minimum: Theme.sidebarMinimum
        maximum: Theme.sidebarMaximum
        ideal: Theme.sidebarWidth
        windowWidth: root.width
        givesWayBelow: Theme.sidebarGivesWayBelow
    }

    SidebarView {
        id: sidebar

        objectName: "sidebar"
        width: sidebarWidth.width - line.width
        height: parent.height
        monitors: root.monitors
        selection: chosen
        actions: root.actions
        canAdd: root.canAdd
        canOpenSettings: root.hasSettings
        onAddRequested: root.showingAddSheet = true
        onSettingsRequested: root.settingsRequested()
    }

    Item {
        id: detail

        objectName: "detail"
        anchors.left: line.right
        anchors.right: parent.right
        height: parent.height

        DashboardView {
            objectName: "dashboard"
            anchors.fill: parent
            visible: !chosen.showsMonitor
            monitors: root.monitors
            overview: root.overview
            selection: chosen
            canAdd: root.canAdd
            onAddRequested: root.showingAddSheet = true
            onCardChosen: appearance.restart()
        }

        // The place of the selected monitor's page.
        PlainMonitorPage {
            objectName: "detailPage"
            anchors.fill: parent
            visible: chosen.showsMonitor
            selection: chosen
        }

        NumberAnimation {
            id: appearance

            target: detail
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.quickMotion
            easing.type: Easing.OutQuad
        }
    }

    Rectangle {
        id: line

        anchors.left: sidebar.right
        width: Theme.hairlineWidth
        height: parent.height
        color: Theme.columnLine
    }

    MouseArea {
        objectName: "grip"
        anchors.horizontalCenter: line.horizontalCenter
        width: Theme.columnGrip
        height: parent.height
        cursorShape: Qt.SplitHCursor
        onPositionChanged: mouse => sidebarWidth.drag(mapToItem(root, mouse.x, 0).x)
    }

    Loader {
        objectName: "addSheet"
        anchors.fill: parent
        active: root.showingAddSheet
        sourceComponent: root.addSheet
    }
}
