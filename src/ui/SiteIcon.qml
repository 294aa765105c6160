import QtQuick

import Ostrel.Theme

// Stands for a site by the first letter of its host.
Item {
    id: root

    required property string urlString
    required property real size
    readonly property string letter: {
        const host = /^[a-z]+:\/\/(?:www\.)?([^\/:]+)/i.exec(root.urlString);
        return host ? host[1].charAt(0).toUpperCase() : "?";
    }

    implicitWidth: size
    implicitHeight: size

    EdgedBox {
        anchors.fill: parent
        radius: root.size * Theme.siteIconRadiusShare
        color: Theme.siteIconPlate
    }

    ThemeText {
        anchors.centerIn: parent
        text: root.letter
        font: ThemeFonts.face(Font.Bold, root.size * Theme.siteIconLetterShare)
        color: Theme.siteIconLetter
        isSpoken: false
    }
}
