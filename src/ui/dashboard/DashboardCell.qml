import QtQuick

import Ostrel.Theme

// The cell of a card in the dashboard's two columns.
Item {
    id: root

    required property int index
    required property string url
    required property string name
    required property int status
    required property string responseTimeText
    required property string cardUptimeText
    required property int cardUptimeTone
    required property string spokenText
    // The position of both columns together on the page.
    property real contentX: 0
    property real contentWidth: 0
    property bool showsFocus: false
    readonly property Item card: view
    readonly property bool isLeft: index % 2 === 0
    readonly property real columnWidth: (contentWidth - Theme.spacing) / 2

    signal chosen
    signal focusRequested

    height: Theme.monitorCardHeight

    MonitorCardView {
        id: view

        objectName: "card"
        x: root.isLeft ? root.contentX : root.contentX + root.contentWidth - width - root.width
        width: root.isLeft ? Math.ceil(root.columnWidth) : Math.floor(root.columnWidth)
        height: implicitHeight
        url: root.url
        name: root.name
        status: root.status
        responseTimeText: root.responseTimeText
        cardUptimeText: root.cardUptimeText
        cardUptimeTone: root.cardUptimeTone
        spokenText: root.spokenText
        showsFocus: root.showsFocus
        onChosen: root.chosen()
        onFocusRequested: root.focusRequested()
    }
}
