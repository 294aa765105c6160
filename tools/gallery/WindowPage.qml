import QtQuick

import Ostrel
import Ostrel.Gallery
import Ostrel.Theme

// The content of the window at its usual size.
Rectangle {
    id: root

    required property string sample

    width: Theme.windowWidth
    height: Theme.windowHeight
    color: Theme.background
    Component.onCompleted: {
        Theme.reducedMotion = true;
        content.selectedMonitorId = canned.selectedMonitorId;
    }

    ContentView {
        id: content

        objectName: "content"
        anchors.fill: parent
        models: canned.models
    }

    CannedWindow {
        id: canned

        sample: root.sample
    }
}
