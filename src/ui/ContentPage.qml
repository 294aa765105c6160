import QtQuick

import Ostrel

// The selected monitor's page in the window.
MonitorDetailView {
    id: root

    required property ContentView content

    objectName: "detailPage"
    model: content.detailModel
    onCheckNow: content.checkSelected()
    onEditMonitor: content.openEditor()
    onGetHelp: content.desktop.getHelp()

    Connections {
        target: root.content

        function onPagesScrolled(pages: real): void {
            root.scrollPages(pages);
        }

        function onEditRequested(): void {
            root.showingEdit = true;
        }

        function onEditEnded(): void {
            root.showingEdit = false;
        }
    }
}
