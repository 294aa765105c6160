import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// Shows where a page stands, and drags it; gone a while after the last scroll.
T.ScrollBar {
    id: root

    readonly property color scrollBar: Qt.alpha(Theme.ink, 0.18)
    readonly property color scrollBarHover: Qt.alpha(Theme.ink, 0.30)
    readonly property real scrollBarWidth: 6
    readonly property real scrollBarMinimum: 24
    readonly property int scrollBarLinger: 1000

    required property Flickable page
    property bool showsHover: hovered || pressed
    property bool isLingering: false
    readonly property real thickness: showsHover ? Theme.scrollBarWidthHover : root.scrollBarWidth

    orientation: Qt.Vertical
    size: page.visibleArea.heightRatio
    position: page.visibleArea.yPosition
    padding: Theme.scrollBarMargin
    minimumSize: height > 0 ? Math.min(1, root.scrollBarMinimum / height) : 0
    hoverEnabled: true
    visible: size < 1
    opacity: active || showsHover || isLingering ? 1 : 0
    Accessible.ignored: true
    onPositionChanged: {
        if (pressed)
            page.contentY = page.originY - page.topMargin + position * (page.topMargin + page.contentHeight + page.bottomMargin);
        isLingering = true;
        linger.restart();
    }

    Timer {
        id: linger

        interval: root.scrollBarLinger
        onTriggered: root.isLingering = false
    }

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.quickMotion
        }
    }

    contentItem: Item {
        EdgedBox {
            anchors.right: parent.right
            width: root.thickness
            height: parent.height
            radius: root.thickness / 2
            color: root.showsHover ? root.scrollBarHover : root.scrollBar
        }
    }
}
