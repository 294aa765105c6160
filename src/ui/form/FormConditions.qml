pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// How often a monitor is checked, and what is expected of a response.
Column {
    id: root

    readonly property real chipGap: 6

    required property MonitorForm form

    signal confirmed

    FormSection {
        width: parent.width
        label: qsTr("CHECK EVERY")

        Row {
            spacing: root.chipGap
            Accessible.role: Accessible.Grouping
            Accessible.name: qsTr("CHECK EVERY")
            Keys.forwardTo: [chipKeys]

            ChoiceKeys {
                id: chipKeys

                choices: chips
            }

            Repeater {
                id: chips

                model: root.form.intervals

                Chip {
                    required property double modelData
                    required property int index

                    objectName: text
                    text: root.form.intervalText(modelData)
                    place: index
                    count: chips.count
                    activeFocusOnTab: index === chipKeys.tabStop
                    isSelected: root.form.interval === modelData
                    onClicked: root.form.interval = modelData
                }
            }
        }
    }

    FormSection {
        width: parent.width
        visible: root.form.isWebsite
        label: qsTr("CHECK FOR KEYWORD (OPTIONAL)")

        Row {
            width: parent.width
            spacing: Theme.controlGap

            Field {
                objectName: "keyword"
                width: parent.width - Theme.keywordModeWidth - parent.spacing
                spokenName: qsTr("CHECK FOR KEYWORD (OPTIONAL)")
                placeholderText: qsTr("e.g. \"Welcome\" or \"error\"")
                text: root.form.keyword
                onTextEdited: root.form.keyword = text
            }

            Picker {
                objectName: "keywordMode"
                width: Theme.keywordModeWidth
                spokenName: qsTr("Keyword")
                model: [qsTr("Must exist"), qsTr("Must not exist")]
                currentIndex: root.form.keywordShouldExist ? 0 : 1
                onActivated: index => root.form.keywordShouldExist = index === 0
                onReturnPressed: root.confirmed()
            }
        }
    }

    FormSection {
        width: parent.width
        visible: root.form.isWebsite
        label: qsTr("ALERT IF SLOWER THAN (OPTIONAL)")

        Row {
            spacing: Theme.controlGap

            Field {
                objectName: "threshold"
                width: Theme.thresholdFieldWidth
                spokenName: qsTr("ALERT IF SLOWER THAN (OPTIONAL)")
                placeholderText: qsTr("e.g. 500")
                text: root.form.thresholdText
                onTextEdited: root.form.thresholdText = text
            }

            ThemeText {
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("ms")
                color: Theme.textSecondary
            }
        }
    }
}
