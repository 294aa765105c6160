import QtQuick

import Ostrel
import Ostrel.Theme

// The dashboard's summary of all monitors.
EdgedBox {
    id: root

    readonly property real bannerGap: 14
    readonly property real bannerTextGap: 3
    readonly property real bannerFillOpacity: 0.06
    readonly property real bannerEdgeOpacity: 0.10

    required property DashboardModel model
    readonly property color statusColor: ToneColors.of(model.tone)

    implicitHeight: Theme.bannerHeight
    radius: Theme.cornerRadius
    color: Theme.faded(statusColor, root.bannerFillOpacity)
    edge: Theme.highContrast ? statusColor : Theme.faded(statusColor, root.bannerEdgeOpacity)

    Symbol {
        id: symbol

        objectName: "bannerSymbol"
        x: Theme.cardPadding
        anchors.verticalCenter: parent.verticalCenter
        name: root.model.banner.symbol
        systemSize: 22
        color: root.statusColor
    }

    Column {
        anchors.left: symbol.right
        anchors.leftMargin: root.bannerGap
        anchors.right: parent.right
        anchors.rightMargin: Theme.cardPadding
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.bannerTextGap

        ThemeText {
            objectName: "headline"
            width: parent.width
            text: root.model.banner.headline
            font: Theme.demiBold15
        }

        ThemeText {
            objectName: "countLine"
            width: parent.width
            text: root.model.banner.countLine
            font: Theme.regular12
            color: Theme.textSecondary
        }
    }
}
