pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The content of the form's sheet. If the window is too small, the middle scrolls between the title
// and the buttons.
FocusScope {
    id: root

    readonly property real sheetMargin: 24
    readonly property real sheetTop: 20
    readonly property real sheetBottom: 20
    readonly property real sheetGap: 16
    readonly property real footerGap: 8

    required property MonitorForm form

    signal confirmed
    signal cancelled

    function focusFirst(): void {
        address.focusFirst();
    }

    function showTop(): void {
        middle.contentY = -middle.topMargin;
    }

    implicitHeight: header.height + middle.contentHeight + footer.height
    Keys.forwardTo: [pageKeys]
    Keys.onReturnPressed: root.confirmed()
    Keys.onEnterPressed: root.confirmed()

    Item {
        id: header

        width: parent.width
        height: title.y + title.height + root.sheetGap

        ThemeText {
            id: title

            objectName: "title"
            x: root.sheetMargin
            y: root.sheetTop
            width: parent.width - 2 * x
            text: root.form.title
            font: Theme.headline
            Accessible.role: Accessible.Heading
        }

        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
            visible: middle.isScrolling
        }
    }

    Flickable {
        id: middle

        readonly property bool isScrolling: contentHeight > height

        objectName: "middle"
        y: header.height
        width: parent.width
        height: parent.height - header.height - footer.height
        contentHeight: groups.height
        // So that nothing touches the lines above and below.
        topMargin: isScrolling ? Theme.spacing : 0
        bottomMargin: topMargin
        interactive: isScrolling && !mouse.isPressed
        boundsBehavior: Flickable.StopAtBounds
        clip: isScrolling
        // A form at its top stays there when the margin appears.
        onTopMarginChanged: {
            if (contentY === 0)
                root.showTop();
        }

        MousePress {
            id: mouse

            page: middle
        }

        FocusFollower {
            page: middle
            margin: root.sheetGap
        }

        Column {
            id: groups

            x: root.sheetMargin
            width: middle.width - 2 * x
            spacing: root.sheetGap

            FormType {
                width: parent.width
                form: root.form
                onChosenByPointer: address.focusFirst()
            }

            FormAddress {
                id: address

                width: parent.width
                form: root.form
            }

            FormConditions {
                width: parent.width
                spacing: root.sheetGap
                form: root.form
                onConfirmed: root.confirmed()
            }

            FormAdvanced {
                width: parent.width
                form: root.form
            }
        }
    }

    PageKeys {
        id: pageKeys

        page: middle
    }

    PageScrollBar {
        page: middle
    }

    Item {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        height: root.sheetBottom + Theme.confirmHeight + root.sheetBottom

        Hairline {
            width: parent.width
            visible: middle.isScrolling
        }

        Row {
            anchors.right: parent.right
            anchors.rightMargin: root.sheetMargin
            y: root.sheetBottom
            spacing: root.footerGap

            TextButton {
                objectName: "cancel"
                text: qsTr("Cancel")
                onClicked: root.cancelled()
            }

            ConfirmButton {
                objectName: "confirm"
                text: root.form.confirmText
                enabled: root.form.isValid
                onClicked: root.confirmed()
            }
        }
    }
}
