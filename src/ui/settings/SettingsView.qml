import QtQuick

import Ostrel
import Ostrel.Theme

// The user's preferences, and the location of the data.
Rectangle {
    id: root

    readonly property real settingsButtonRowHeight: 52
    readonly property real settingsTallRowHeight: 60
    readonly property real settingsTextGap: 3

    required property Settings settings
    required property DesktopActions actions

    implicitWidth: Theme.settingsWidth
    implicitHeight: Theme.settingsHeight
    color: Theme.background

    Column {
        x: Theme.pageMargin
        y: Theme.pageMargin
        width: parent.width - 2 * Theme.pageMargin
        spacing: Theme.sectionSpacing

        SettingsGroup {
            width: parent.width
            title: qsTr("General")

            SettingsRow {
                QuietText {
                    id: launchLabel

                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Launch at Login")
                }

                Toggle {
                    objectName: "launchAtLogin"
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    spokenName: launchLabel.text
                    checked: root.settings.launchAtLogin
                    onCheckedChanged: root.settings.launchAtLogin = checked
                }
            }
        }

        SettingsGroup {
            width: parent.width
            title: qsTr("Notifications")

            SettingsRow {
                QuietText {
                    id: soundsLabel

                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Play Sounds on Status Change")
                }

                Toggle {
                    objectName: "playSounds"
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    spokenName: soundsLabel.text
                    checked: root.settings.playSounds
                    onCheckedChanged: root.settings.playSounds = checked
                }
            }

            SettingsRow {
                implicitHeight: root.settingsButtonRowHeight + Theme.hairlineWidth
                hasDivider: true

                QuietButton {
                    objectName: "notificationSettings"
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Open Notification Settings...")
                    onClicked: root.actions.openNotificationSettings()
                }
            }
        }

        SettingsGroup {
            width: parent.width
            title: qsTr("Data")

            SettingsRow {
                implicitHeight: root.settingsTallRowHeight

                Column {
                    anchors.left: parent.left
                    anchors.right: reveal.left
                    anchors.rightMargin: Theme.spacing
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: root.settingsTextGap

                    ThemeText {
                        id: storedIn

                        text: qsTr("Stored in")
                        font: Theme.caption
                    }

                    TextInput {
                        objectName: "dataFolder"
                        width: parent.width
                        height: ThemeFonts.lineBox(font.pixelSize)
                        verticalAlignment: TextInput.AlignVCenter
                        renderType: ScreenGrid.isCoarse ? TextInput.NativeRendering : TextInput.QtRendering
                        clip: true
                        readOnly: true
                        selectByMouse: true
                        autoScroll: activeFocus
                        activeFocusOnTab: true
                        // The text is ready to be copied, and the selection shows the keyboard
                        // focus.
                        onActiveFocusChanged: {
                            if (activeFocus)
                                selectAll();
                            else
                                deselect();
                        }
                        text: root.actions.dataFolderText
                        font: ThemeFonts.system(11)
                        color: Theme.textSecondary
                        selectionColor: Theme.textSelection
                        selectedTextColor: Theme.textPrimary
                        Accessible.role: Accessible.EditableText
                        Accessible.editable: false
                        Accessible.readOnly: true
                        Accessible.name: storedIn.text
                    }
                }

                QuietButton {
                    id: reveal

                    objectName: "reveal"
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Reveal in File Manager")
                    onClicked: root.actions.revealDataFolder()
                }
            }
        }
    }
}
