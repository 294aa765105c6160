import QtQuick

import Ostrel
import Ostrel.Theme

// The address to watch: a web address, with the clipboard's suggestion above it, or a host and a
// port.
Column {
    id: root

    readonly property real portFieldWidth: 104

    required property MonitorForm form

    function focusFirst(): void {
        (form.isWebsite ? address : host).forceActiveFocus(Qt.OtherFocusReason);
    }

    spacing: Theme.sheetLabelGap

    AddressSuggestion {
        objectName: "suggestion"
        width: parent.width
        visible: root.form.showsClipboardSuggestion
        text: root.form.suggestionText
        onClicked: {
            root.form.pasteSuggestion();
            root.focusFirst();
        }
    }

    Field {
        id: address

        objectName: "address"
        width: parent.width
        height: Theme.addressFieldHeight
        visible: root.form.isWebsite
        spokenName: qsTr("Website address")
        placeholderText: root.form.urlPlaceholder
        font: Theme.system13
        text: root.form.url
        trailingSymbol: root.form.isValid ? "checkmark.circle.fill" : ""
        trailingName: qsTr("Valid")
        onTextEdited: {
            root.form.url = text;
            // A host and a port have been typed: the next key is for the port.
            if (!root.form.isWebsite) {
                port.forceActiveFocus(Qt.OtherFocusReason);
                port.cursorPosition = port.length;
            }
        }
    }

    Row {
        width: parent.width
        visible: !root.form.isWebsite
        spacing: Theme.spacing

        FormSection {
            width: parent.width - root.portFieldWidth - parent.spacing
            label: qsTr("HOST")

            Field {
                id: host

                objectName: "host"
                width: parent.width
                height: Theme.addressFieldHeight
                spokenName: qsTr("HOST")
                placeholderText: root.form.hostPlaceholder
                text: root.form.url
                onTextEdited: root.form.url = text
            }
        }

        FormSection {
            width: root.portFieldWidth
            label: qsTr("PORT")

            Field {
                id: port

                objectName: "port"
                width: parent.width
                height: Theme.addressFieldHeight
                spokenName: qsTr("PORT")
                placeholderText: "5432"
                text: root.form.portText
                onTextEdited: {
                    root.form.portText = text;
                    // It was the beginning of a web address: the next key goes on with that.
                    if (root.form.isWebsite) {
                        address.forceActiveFocus(Qt.OtherFocusReason);
                        address.cursorPosition = address.length;
                    }
                }
            }
        }
    }
}
