import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// Shows where a page stands, and drags it; gone a while after the last scroll.
T.ScrollBar {
    id: root

    property bool showsHover: hovered || pressed
    property bool isLingering: false
    readonly property real thickness: showsHover ? Theme.scrollBarWidthHover : Theme.scrollBarWidth

    implicitWidth: Theme.scrollBarWidthHover + 2 * Theme.scrollBarMargin
    implicitHeight: implicitWidth
    padding: Theme.scrollBarMargin
    minimumSize: height > 0 ? Math.min(1, Theme.scrollBarMinimum / (horizontal ? width : height)) : 0
    hoverEnabled: true
    visible: size < 1
    opacity: active || showsHover || isLingering ? 1 : 0
    Accessible.ignored: true
    onPositionChanged: {
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
            anchors.bottom: parent.bottom
            width: root.horizontal ? parent.width : root.thickness
            height: root.horizontal ? root.thickness : parent.height
            radius: root.thickness / 2
            color: root.showsHover ? Theme.scrollBarHover : Theme.scrollBar
        }
    }
}
