import QtQuick

import Ostrel
import Ostrel.Gallery
import Ostrel.Theme

// The page of one monitor in the smallest window.
Rectangle {
    id: root

    required property string sample

    width: Theme.windowMinimumWidth - Theme.sidebarMinimum - Theme.hairlineWidth
    height: Theme.windowMinimumHeight
    color: Theme.background

    MonitorDetailView {
        anchors.fill: parent
        model: canned.model
    }

    CannedDetail {
        id: canned

        sample: root.sample
    }
}
