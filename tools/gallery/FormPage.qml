import QtQuick

import Ostrel
import Ostrel.Gallery
import Ostrel.Theme

// The sheet in a window of the usual size.
Rectangle {
    id: root

    required property string sample

    width: Theme.windowWidth
    height: Theme.windowHeight
    color: Theme.background
    Component.onCompleted: Theme.reducedMotion = true

    AddMonitorSheet {
        form: canned.form
        visible: true
    }

    CannedForm {
        id: canned

        sample: root.sample
    }
}
