import QtQuick

import Ostrel
import Ostrel.Theme

// Options that few monitors need, behind a disclosure button.
Column {
    id: root

    readonly property real timeoutFieldWidth: 60
    readonly property real advancedRowHeight: 42
    readonly property real advancedButtonHeight: 20
    readonly property real advancedInset: 14
    readonly property real advancedFieldHeight: 28

    required property MonitorForm form
    readonly property list<string> methods: Array.from(form.methods)

    spacing: Theme.sheetLabelGap

    TextButton {
        objectName: "advanced"
        horizontalPadding: 0
        implicitHeight: root.advancedButtonHeight
        text: qsTr("Advanced")
        symbol: root.form.showAdvanced ? "chevron.down" : "chevron.right"
        face: Theme.caption
        takesReturn: false
        showsHover: hovered || root.form.showAdvanced
        Accessible.description: root.form.showAdvanced ? qsTr("Expanded") : qsTr("Collapsed")
        onClicked: root.form.showAdvanced = !root.form.showAdvanced
    }

    EdgedBox {
        objectName: "advancedGroup"
        width: parent.width
        height: rows.height
        visible: root.form.showAdvanced
        radius: Theme.cornerRadiusSmall
        color: Qt.alpha(Theme.ink, 0.03)

        Column {
            id: rows

            x: root.advancedInset
            width: parent.width - 2 * x

            Item {
                width: parent.width
                height: root.advancedRowHeight
                visible: root.form.isWebsite

                ThemeText {
                    id: methodLabel

                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Method")
                }

                SegmentedPicker {
                    objectName: "method"
                    anchors.right: parent.right
                    anchors.rightMargin: (root.advancedRowHeight - height) / 2 - root.advancedInset
                    anchors.verticalCenter: parent.verticalCenter
                    spokenName: methodLabel.text
                    choices: root.methods
                    currentIndex: root.methods.indexOf(root.form.method)
                    onActivated: index => root.form.method = root.methods[index]
                }

                Hairline {
                    anchors.bottom: parent.bottom
                    width: parent.width
                }
            }

            Item {
                width: parent.width
                height: root.advancedRowHeight

                ThemeText {
                    id: timeoutLabel

                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Timeout")
                }

                Field {
                    id: timeout

                    // While the user types, the text may be no number, or not yet the intended one.
                    function showValue(): void {
                        if (!activeFocus)
                            text = root.form.timeoutText;
                    }

                    objectName: "timeout"
                    anchors.right: parent.right
                    anchors.rightMargin: (root.advancedRowHeight - height) / 2 - root.advancedInset
                    anchors.verticalCenter: parent.verticalCenter
                    width: root.timeoutFieldWidth
                    height: root.advancedFieldHeight
                    horizontalAlignment: TextInput.AlignRight
                    spokenName: timeoutLabel.text
                    onTextEdited: root.form.typeTimeout(text)
                    onActiveFocusChanged: {
                        if (!activeFocus)
                            root.form.commitTimeout();
                        showValue();
                    }
                    Component.onCompleted: showValue()

                    Connections {
                        target: root.form

                        function onChanged(): void {
                            timeout.showValue();
                        }
                    }
                }
            }
        }
    }
}
