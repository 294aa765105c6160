pragma Singleton

import QtQuick

QtObject {
    readonly property color background: Qt.rgba(1.0, 0.94, 0.9, 1.0)
    readonly property color textPrimary: Qt.rgba(0.12, 0.12, 0.22, 1.0)
    readonly property color textSecondary: Qt.alpha(textPrimary, 0.5)
    readonly property color statusUp: Qt.rgba(0.22, 0.75, 0.5, 1.0)
    readonly property color statusDown: Qt.rgba(0.92, 0.34, 0.3, 1.0)
    readonly property color statusMuted: Qt.alpha(textPrimary, 0.25)

    readonly property font bodyFont: Qt.font({ pixelSize: 13 })
    readonly property font captionFont: Qt.font({ pixelSize: 11 })

    readonly property real pageMargin: 24
    readonly property real spacing: 12
    readonly property real tightSpacing: 4
    readonly property real dotSize: 8
    readonly property real rowHeight: 48
}
