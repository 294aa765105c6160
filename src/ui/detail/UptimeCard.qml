import QtQuick

import Ostrel
import Ostrel.Theme

// The history of a monitor as a strip, with its share of successful checks and its age.
CardStyle {
    id: root

    readonly property real stripHeight: 26
    readonly property real stripGap: 12
    readonly property real stripFootGap: 6

    // An uptimeTimeline, declared as var: compiled ahead of time, its enumeration couldn't be read.
    required property var timeline

    implicitHeight: 106

    ThemeText {
        id: title

        text: qsTr("Uptime")
        font: Theme.headline
        Accessible.role: Accessible.Heading
    }

    ThemeText {
        objectName: "percentage"
        anchors.right: parent.right
        anchors.baseline: title.baseline
        visible: text !== ""
        text: root.timeline.percentageText
        font: Theme.headline
        color: ToneColors.of(root.timeline.percentageTone)
    }

    UptimeTimelineView {
        id: strip

        objectName: "strip"
        anchors.top: title.bottom
        anchors.topMargin: root.stripGap
        width: parent.width
        height: root.stripHeight
        timeline: root.timeline
        upColor: Theme.statusUp
        downColor: Theme.statusDown
        emptyColor: Qt.alpha(Theme.ink, 0.04)
    }

    ThemeText {
        objectName: "collecting"
        anchors.centerIn: strip
        visible: root.timeline.isEmpty
        text: qsTr("Collecting data...")
        font: Theme.regular10
        color: Theme.statusMuted
    }

    ThemeText {
        objectName: "age"
        anchors.top: strip.bottom
        anchors.topMargin: root.stripFootGap
        text: root.timeline.ageText
        font: Theme.regular9
        color: Theme.statusMuted
    }

    ThemeText {
        anchors.right: parent.right
        anchors.top: strip.bottom
        anchors.topMargin: root.stripFootGap
        text: qsTr("Now")
        font: Theme.regular9
        color: Theme.statusMuted
    }
}
