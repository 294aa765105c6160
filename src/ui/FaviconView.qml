import QtQuick

import Ostrel
import Ostrel.Theme

// The icon of a monitored site, or a letter that stands for it. Decoration: its surroundings name
// the monitor.
FaviconImage {
    required property real size

    implicitWidth: size
    implicitHeight: size
    radius: size * Theme.siteIconRadiusShare
    letterSize: size * Theme.siteIconLetterShare
    letterColor: Theme.siteIconLetter
    plateColor: Theme.siteIconPlate
}
