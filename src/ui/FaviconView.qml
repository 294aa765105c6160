import QtQuick

import Ostrel
import Ostrel.Theme

// The icon of a monitored site, or a letter as its placeholder. Decorative: the items around it
// name the monitor.
FaviconImage {
    id: root

    readonly property real siteIconRadiusShare: 0.22
    readonly property real siteIconLetterShare: 0.45

    required property real size

    implicitWidth: size
    implicitHeight: size
    radius: size * root.siteIconRadiusShare
    letterSize: size * root.siteIconLetterShare
    letterColor: Theme.faint(Theme.accent, 0.50)
    plateColor: Qt.alpha(Theme.accent, 0.08)
}
