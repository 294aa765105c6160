import QtQuick

import Ostrel

// The form over the window.
AddMonitorSheet {
    id: root

    required property ContentView content

    form: content.opener.form
    onClosed: content.takeBack()

    Binding {
        target: root.content
        property: "isSheetOpen"
        value: root.visible
    }

    Connections {
        target: root.content

        function onSheetRequested(): void {
            root.open();
        }
    }
}
