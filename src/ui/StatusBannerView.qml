import QtQuick

import Ostrel
import Ostrel.Theme

// What the dashboard says of all monitors together.
EdgedBox {
    id: root

    required property DashboardOverview overview
    readonly property color statusColor: ToneColors.of(overview.tone)

    implicitHeight: Theme.bannerHeight
    radius: Theme.cornerRadius
    color: Theme.faded(statusColor, Theme.bannerFillOpacity)
    edge: Theme.faded(statusColor, Theme.bannerEdgeOpacity)

    Symbol {
        id: symbol

        objectName: "bannerSymbol"
        x: Theme.cardPadding
        anchors.verticalCenter: parent.verticalCenter
        name: root.overview.banner.symbol
        systemSize: 22
        color: root.statusColor
    }

    Column {
        anchors.left: symbol.right
        anchors.leftMargin: Theme.bannerGap
        anchors.right: parent.right
        anchors.rightMargin: Theme.cardPadding
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.bannerTextGap

        ThemeText {
            objectName: "headline"
            width: parent.width
            text: root.overview.banner.headline
            font: Theme.demiBold15
        }

        ThemeText {
            objectName: "countLine"
            width: parent.width
            text: root.overview.banner.countLine
            font: Theme.regular12
            color: Theme.textSecondary
        }
    }
}
