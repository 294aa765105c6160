import QtQuick

import Ostrel
import Ostrel.Theme

// The icon of a monitored site, or a letter that stands for it. Decoration: its surroundings name
// the monitor.
Item {
    id: root

    required property string urlString
    required property real size
    readonly property real radius: size * Theme.siteIconRadiusShare

    implicitWidth: size
    implicitHeight: size

    EdgedBox {
        anchors.fill: parent
        visible: !icon.hasIcon
        radius: root.radius
        color: Theme.siteIconPlate

        QuietText {
            objectName: "letter"
            anchors.centerIn: parent
            text: icon.placeholderLetter
            font: Theme.face(Font.Bold, root.size * Theme.siteIconLetterShare)
            color: Theme.siteIconLetter
        }
    }

    FaviconImage {
        id: icon

        anchors.fill: parent
        urlString: root.urlString
        radius: root.radius
    }
}
