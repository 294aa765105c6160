import QtQuick

import Ostrel
import Ostrel.Theme

// One monitor on the dashboard.
CardStyle {
    id: root

    readonly property color cardHover: Qt.tint(Theme.surface, Qt.rgba(1, 1, 1, 0.5))
    readonly property color cardHoverEdge: Theme.faint(Theme.accent, 0.20)
    readonly property color cardPressed: Qt.tint(Theme.surface, Qt.alpha(Theme.accent, 0.04))
    readonly property real monitorCardGap: 8
    readonly property real monitorCardIconSize: 20

    required property string url
    required property string name
    required property int status
    required property string responseTimeText
    required property string cardUptimeText
    required property int cardUptimeTone
    required property string spokenText
    property bool showsFocus: false

    signal chosen
    // An assistive tool has moved the keyboard focus to the card.
    signal focusRequested

    // Found by name. As a handler, the action would be offered twice.
    function accessiblePressAction(): void {
        chosen();
    }

    implicitHeight: Theme.monitorCardHeight
    color: area.pressed ? root.cardPressed : area.containsMouse ? root.cardHover : Theme.surface
    edge: area.containsMouse ? root.cardHoverEdge : Theme.hairline
    Accessible.role: Accessible.Button
    Accessible.name: spokenText
    Accessible.focusable: true
    Accessible.focused: showsFocus
    onActiveFocusChanged: {
        if (activeFocus)
            focusRequested();
    }

    // Around the contents: their help texts would keep the pointer from an area beneath them.
    MouseArea {
        id: area

        anchors.fill: parent
        anchors.margins: -root.padding
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: root.chosen()

        Item {
            anchors.fill: parent
            anchors.margins: root.padding

            FaviconView {
                id: icon

                urlString: root.url
                size: root.monitorCardIconSize
            }

            QuietText {
                anchors.left: icon.right
                anchors.leftMargin: root.monitorCardGap
                anchors.right: dot.left
                anchors.rightMargin: root.monitorCardGap
                anchors.verticalCenter: icon.verticalCenter
                text: root.name
                font: Theme.demiBold13
            }

            StatusDot {
                id: dot

                x: Math.round(parent.width - width)
                y: Theme.centred(icon.height, height)
                status: root.status
                size: Theme.dotSizeSmall
            }

            QuietText {
                id: time

                objectName: "time"
                anchors.baseline: uptime.baseline
                visible: text !== ""
                text: root.responseTimeText
                font: ThemeFonts.mono(400, 11)
                color: Theme.textTertiary
            }

            QuietText {
                id: uptime

                objectName: "uptime"
                x: time.visible ? time.width + root.monitorCardGap : 0
                anchors.bottom: parent.bottom
                text: root.cardUptimeText
                font: Theme.demiBold13
                color: ToneColors.of(root.cardUptimeTone)
            }
        }
    }

    FocusRing {
        parent: root
        visible: root.showsFocus
        controlRadius: root.radius
    }
}
