import QtQuick

import Ostrel
import Ostrel.Theme

Window {
    id: root

    required property MonitorListModel monitors

    title: "Ostrel"
    width: 960
    height: 640
    minimumWidth: 800
    minimumHeight: 520
    color: Theme.background

    ContentView {
        anchors.fill: parent
        monitors: root.monitors
    }
}
