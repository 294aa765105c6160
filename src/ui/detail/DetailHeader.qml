import QtQuick

import Ostrel
import Ostrel.Theme

// The page's monitor and its actions.
Item {
    id: root

    readonly property real headerGap: 14
    readonly property real headerTextGap: 1
    readonly property real headerButtonTop: 6
    readonly property real headerButtonGap: 4

    required property string name
    required property string address
    required property string url
    required property bool isWebsite
    property bool isChecking: false

    signal checkNow
    signal editMonitor
    signal getHelp
    signal copyAddress
    signal openAddress

    implicitHeight: Theme.headerHeight

    FaviconView {
        id: icon

        urlString: root.url
        size: Theme.headerIconSize
    }

    Column {
        anchors.left: icon.right
        anchors.leftMargin: root.headerGap
        anchors.right: actions.left
        anchors.rightMargin: root.headerGap
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.headerTextGap

        ThemeText {
            objectName: "name"
            width: parent.width
            text: root.name
            font: ThemeFonts.face(700, 22)
            Accessible.role: Accessible.Heading
        }

        AddressLine {
            objectName: "address"
            width: Math.min(implicitWidth, parent.width)
            text: root.address
            isWebsite: root.isWebsite
            onCopyRequested: root.copyAddress()
            onOpenRequested: root.openAddress()
        }
    }

    Row {
        id: actions

        anchors.right: parent.right
        y: root.headerButtonTop
        spacing: root.headerButtonGap

        IconButton {
            objectName: "checkNow"
            symbol: "arrow.trianglehead.clockwise"
            helpText: qsTr("Check now")
            isBusy: root.isChecking
            onClicked: root.checkNow()
        }

        IconButton {
            objectName: "editMonitor"
            symbol: "gearshape"
            helpText: qsTr("Edit monitor")
            onClicked: root.editMonitor()
        }

        IconButton {
            objectName: "getHelp"
            symbol: "questionmark.circle"
            helpText: qsTr("Get help")
            onClicked: root.getHelp()
        }
    }
}
