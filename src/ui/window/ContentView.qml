pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The window's two columns, and the sheet that opens over them. When the sheet closes, the focus
// returns to where it was when it opened. If that is gone, the sidebar's list has the focus.
FocusScope {
    id: root

    enum SheetState {
        Closed,
        Creating,
        Editing
    }

    required property WindowModels models
    property alias selectedMonitorId: chosen.monitorId
    // Null until they are first shown.
    property MonitorDetailView page: null
    property AddMonitorSheet sheet: null
    property int sheetState: ContentView.Closed
    readonly property bool hasSheet: sheetState !== ContentView.Closed
    readonly property bool showingAddSheet: sheetState === ContentView.Creating
    readonly property bool showingEdit: sheetState === ContentView.Editing

    signal settingsRequested

    function add(): void {
        if (sheetState !== ContentView.Closed)
            return;
        models.opener.beginCreate();
        sheetState = ContentView.Creating;
    }

    function edit(): void {
        if (sheetState === ContentView.Closed && models.opener.beginEdit(selectedMonitorId))
            sheetState = ContentView.Editing;
    }

    focus: true
    Keys.onPressed: event => {
        event.accepted = false;
        if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown)
            (chosen.showsMonitor ? page.keys : dashboard.keys).take(event);
    }
    Keys.onEscapePressed: {
        chosen.clear();
        sidebar.focusList();
    }
    onSheetStateChanged: {
        if (sheetState === ContentView.Closed)
            return;
        if (!sheet)
            sheet = sheetComponent.createObject(root) as AddMonitorSheet;
        sheet.open();
    }

    Binding {
        target: root.models.detail
        property: "monitorId"
        value: chosen.monitorId
    }

    Connections {
        target: root.models.opener

        function onCreateRequested(): void {
            root.add();
        }
    }

    Connections {
        target: root.models

        function onPageRequested(monitorId: var): void {
            chosen.monitorId = monitorId;
        }
    }

    LostFocus {
        content: root
        isWatching: !root.hasSheet // It looks after its own.
        onTriggered: sidebar.focusList()
    }

    UptimeRefresh {
        monitors: root.models.monitors
    }

    MonitorSelection {
        id: chosen

        monitors: root.models.monitors
        onShowsMonitorChanged: {
            if (showsMonitor && !root.page)
                root.page = pageComponent.createObject(detail) as MonitorDetailView;
        }
    }

    SidebarWidth {
        id: sidebarWidth

        minimum: Theme.sidebarMinimum
        maximum: 380
        ideal: Theme.sidebarWidth
        windowWidth: root.width
        givesWayBelow: 860
    }

    SidebarView {
        id: sidebar

        objectName: "sidebar"
        width: sidebarWidth.width - line.width
        height: parent.height
        monitors: root.models.monitors
        selection: chosen
        actions: root.models.actions
        notice: root.models.notice
        onAddRequested: root.add()
        onSettingsRequested: root.settingsRequested()
    }

    SidebarEdge {
        id: line

        anchors.left: sidebar.right
        // The grip is wider than the line.
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
            monitors: root.models.monitors
            model: root.models.dashboard
            selection: chosen
            onAddRequested: root.add()
            onCardChosen: appearance.restart()
        }

        Component {
            id: pageComponent

            MonitorDetailView {
                objectName: "detailPage"
                anchors.fill: parent
                visible: chosen.showsMonitor
                model: root.models.detail
                onCheckNow: root.models.actions.checkNow(root.selectedMonitorId)
                onEditMonitor: root.edit()
                onGetHelp: root.models.desktop.getHelp()
                onCopyAddress: root.models.desktop.copyText(model.detail.url)
                onOpenAddress: root.models.desktop.openWebsite(model.detail.website)
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

    Component {
        id: sheetComponent

        AddMonitorSheet {
            form: root.models.opener.form
            onClosed: {
                root.sheetState = ContentView.Closed;
                root.forceActiveFocus(Qt.PopupFocusReason);
            }
        }
    }
}
