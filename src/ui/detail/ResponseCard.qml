import QtQuick

import Ostrel
import Ostrel.Theme

// The response times of the last day: a chart, or the reason why there is none.
CardStyle {
    id: root

    readonly property real chartHeight: 180
    readonly property real chartGap: 12
    readonly property real chartPlaceholderGap: 10

    required property responseSeries series
    required property clockStyle clock
    required property bool hasChecks

    // The same without a chart, so that the first check moves nothing.
    implicitHeight: 242

    ThemeText {
        id: title

        text: qsTr("Response Time")
        font: Theme.headline
        Accessible.role: Accessible.Heading
    }

    ThemeText {
        objectName: "newest"
        anchors.right: parent.right
        anchors.baseline: title.baseline
        visible: text !== ""
        text: root.series.newestText
        font: Theme.mono
        color: Theme.textSecondary
    }

    Item {
        id: body

        anchors.top: title.bottom
        anchors.topMargin: root.chartGap
        width: parent.width
        height: root.chartHeight

        ResponseChartView {
            objectName: "chart"
            anchors.fill: parent
            visible: root.hasChecks && root.series.isPlottable
            series: root.series
            clock: root.clock
            lineColor: Theme.accent
            gridColor: Theme.statusMuted
            gridWidth: Theme.highContrast ? 1 : 0.4
            labelColor: Theme.textSecondary
            labelFont: Theme.regular9
        }

        Column {
            objectName: "waiting"
            anchors.centerIn: parent
            visible: root.hasChecks && !root.series.isPlottable
            spacing: root.chartPlaceholderGap

            Symbol {
                anchors.horizontalCenter: parent.horizontalCenter
                name: "waveform.path"
                systemSize: 28
                color: Theme.statusMuted
            }

            ThemeText {
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("Waiting for data")
                font: Theme.caption
                color: Theme.statusMuted
            }
        }

        ThemeText {
            objectName: "noChecks"
            anchors.centerIn: parent
            visible: !root.hasChecks
            text: qsTr("No checks yet")
            font: Theme.caption
            color: Theme.statusMuted
        }
    }
}
