import QtQuick

import Ostrel
import Ostrel.Gallery
import Ostrel.Theme

// The whole page of one monitor, as wide as in a window of the usual size.
Rectangle {
    id: root

    required property string sample

    width: Theme.windowWidth - Theme.sidebarWidth - Theme.hairlineWidth
    height: view.contentHeight
    color: Theme.background

    MonitorDetailView {
        id: view

        objectName: "view"
        anchors.fill: parent
        model: canned.model
    }

    CannedDetail {
        id: canned

        sample: root.sample
    }
}
