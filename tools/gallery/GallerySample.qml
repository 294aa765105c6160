import QtQuick

import Ostrel.Theme

// One component in one state, with the state's name below it.
Item {
    id: root

    property string caption: ""
    default property alias contents: body.data

    implicitWidth: Math.max(body.width, label.implicitWidth)
    implicitHeight: label.y + label.height

    Item {
        id: body

        anchors.horizontalCenter: parent.horizontalCenter
        width: childrenRect.width
        height: childrenRect.height
    }

    ThemeText {
        id: label

        anchors.horizontalCenter: parent.horizontalCenter
        y: body.height + Theme.spacingSmall
        text: root.caption
        font: Theme.regular10
        color: Theme.textSecondary
    }
}
