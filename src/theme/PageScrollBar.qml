import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// The scroll bar at a page's right edge: shows the page's position, and drags it; hidden a while
// after the last scroll.
T.ScrollBar {
    id: root

    readonly property real restWidth: 6
    readonly property real hoverWidth: 8
    readonly property real margin: 2
    readonly property real shortest: 24

    required property Flickable page
    property bool showsHover: hovered || pressed
    property bool isLingering: false
    readonly property real thickness: showsHover ? hoverWidth : restWidth

    anchors.right: page.right
    anchors.top: page.top
    anchors.bottom: page.bottom
    width: hoverWidth + 2 * margin
    orientation: Qt.Vertical
    size: page.visibleArea.heightRatio
    position: page.visibleArea.yPosition
    padding: margin
    minimumSize: height > 0 ? Math.min(1, shortest / height) : 0
    hoverEnabled: true
    visible: size < 1
    opacity: active || showsHover || isLingering ? 1 : 0
    Accessible.ignored: true
    onPositionChanged: {
        if (pressed)
            page.contentY = page.originY - page.topMargin + position * (page.topMargin + page.contentHeight + page.bottomMargin);
    }

    Connections {
        target: root.page

        function onContentYChanged(): void {
            // A layout moves the page to its top: the user hasn't scrolled it.
            const isAtTop = root.page.contentY === root.page.originY - root.page.topMargin;
            if (isAtTop && !root.isLingering)
                return;
            root.isLingering = true;
            linger.restart();
        }
    }

    Timer {
        id: linger

        interval: 1000
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
            color: Theme.faint(Theme.ink, root.showsHover ? 0.30 : 0.18)
        }
    }
}
