import QtQuick

import Ostrel
import Ostrel.Theme

// The window's two columns, and what opens over them. Where the keyboard was when the sheet opened,
// it is again when the sheet has closed.
FocusScope {
    id: root

    readonly property real sidebarMaximum: 380
    readonly property real sidebarGivesWayBelow: 860

    required property MonitorListModel monitors
    required property DashboardOverview overview
    required property AppActions actions
    required property MonitorDetailModel detailModel
    required property SheetOpener opener
    required property DesktopActions desktop
    required property SidebarNotice notice
    property alias selectedMonitorId: chosen.monitorId
    property bool showingAddSheet: false
    // Set by the sheet.
    property bool isSheetOpen: false

    signal settingsRequested
    // To what is made when it is first needed, and doesn't have to be known before.
    signal sheetRequested
    signal pagesScrolled(pages: real)
    signal editRequested
    signal editEnded

    function layOut(): void {
        sidebar.layOut();
        dashboard.layOut();
    }

    function add(): void {
        if (!isSheetOpen)
            showingAddSheet = true;
    }

    function openSheet(): void {
        if (!sheet.item)
            sheet.setSource("ContentSheet.qml", {
                content: root
            });
        sheetRequested();
    }

    // Of the sheet.
    function takeBack(): void {
        showingAddSheet = false;
        editEnded();
        forceActiveFocus(Qt.PopupFocusReason);
    }

    function openEditor(): void {
        if (opener.beginEdit(selectedMonitorId))
            openSheet();
        else
            editEnded();
    }

    function checkSelected(): void {
        actions.checkNow(selectedMonitorId);
    }

    function scrollPages(pages: real): void {
        if (chosen.showsMonitor)
            pagesScrolled(pages);
        else
            dashboard.scrollPages(pages);
    }

    function editSelected(): void {
        if (!isSheetOpen && chosen.showsMonitor)
            editRequested();
    }

    focus: true
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown;
        if (event.accepted)
            scrollPages(event.key === Qt.Key_PageUp ? -1 : 1);
    }
    onShowingAddSheetChanged: {
        if (!showingAddSheet)
            return;
        opener.beginCreate();
        openSheet();
    }

    Binding {
        target: root.detailModel
        property: "monitorId"
        value: chosen.monitorId
    }

    WindowExposure {
        id: exposure

        window: root.Window.window
    }

    // The windows of the uptimes move without any check.
    Timer {
        interval: root.monitors.refreshInterval
        running: exposure.isExposed
        repeat: true
        triggeredOnStart: true
        onTriggered: root.monitors.refresh()
    }

    MonitorSelection {
        id: chosen

        monitors: root.monitors
    }

    SidebarWidth {
        id: sidebarWidth

        minimum: Theme.sidebarMinimum
        maximum: root.sidebarMaximum
        ideal: Theme.sidebarWidth
        windowWidth: root.width
        givesWayBelow: root.sidebarGivesWayBelow
    }

    SidebarView {
        id: sidebar

        objectName: "sidebar"
        width: sidebarWidth.width - line.width
        height: parent.height
        monitors: root.monitors
        selection: chosen
        actions: root.actions
        notice: root.notice
        onAddRequested: root.add()
        onSettingsRequested: root.settingsRequested()
    }

    Item {
        id: line

        anchors.left: sidebar.right
        width: Theme.hairlineWidth
        height: parent.height

        Hairline {
            height: parent.height
            color: Qt.alpha(Theme.accent, 0.08)
        }
    }

    SidebarGrip {
        objectName: "grip"
        anchors.horizontalCenter: line.horizontalCenter
        z: 1
        height: parent.height
        sidebarWidth: sidebarWidth
    }

    Item {
        id: detail

        objectName: "detail"
        anchors.left: line.right
        anchors.right: parent.right
        height: parent.height

        DashboardView {
            id: dashboard

            objectName: "dashboard"
            anchors.fill: parent
            visible: !chosen.showsMonitor
            monitors: root.monitors
            overview: root.overview
            selection: chosen
            onAddRequested: root.add()
            onCardChosen: appearance.restart()
        }

        // Made when it is first shown, as is the sheet: the window opens sooner without them, and
        // without the types that only they use.
        Loader {
            id: page

            anchors.fill: parent
            visible: chosen.showsMonitor
            onVisibleChanged: {
                if (visible && !item)
                    setSource("ContentPage.qml", {
                        content: root
                    });
            }
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

    Loader {
        id: sheet
    }
}
