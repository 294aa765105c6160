import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// Shows where a page stands, and drags it; gone a while after the last scroll.
T.ScrollBar {
    id: root

    required property Flickable page
    property bool showsHover: hovered || pressed
    property bool isLingering: false
    readonly property real thickness: showsHover ? Theme.scrollBarWidthHover : Theme.scrollBarWidth

    orientation: Qt.Vertical
    size: page.visibleArea.heightRatio
    position: page.visibleArea.yPosition
    padding: Theme.scrollBarMargin
    minimumSize: height > 0 ? Math.min(1, Theme.scrollBarMinimum / height) : 0
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

        interval: Theme.scrollBarLinger
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
            color: root.showsHover ? Theme.scrollBarHover : Theme.scrollBar
        }
    }
}
