import QtQuick

import Ostrel
import Ostrel.Gallery
import Ostrel.Theme

// The sheet in the smallest window, where its middle scrolls.
Rectangle {
    id: root

    required property string sample

    width: Theme.windowMinimumWidth
    height: Theme.windowMinimumHeight
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
