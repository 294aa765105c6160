pragma ComponentBehavior: Bound

import QtQuick

import Ostrel
import Ostrel.Theme

// The kind of the monitor, as tiles side by side.
Row {
    id: root

    readonly property real tileGap: 8

    required property MonitorForm form

    // A tile was chosen without the keyboard, which the address can have then.
    signal chosenByPointer

    spacing: tileGap
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Type")
    Keys.forwardTo: [keys]

    ChoiceKeys {
        id: keys

        choices: tiles
    }

    Repeater {
        id: tiles

        model: [
            {
                type: "http",
                text: qsTr("Website"),
                symbol: "globe"
            },
            {
                type: "port",
                text: qsTr("Port"),
                symbol: "network"
            }
        ]

        Tile {
            required property var modelData
            required property int index

            objectName: modelData.type
            place: index
            count: tiles.count
            activeFocusOnTab: index === keys.tabStop
            width: (root.width - root.tileGap) / tiles.count
            text: modelData.text
            symbol: modelData.symbol
            isSelected: root.form.monitorType === modelData.type
            onClicked: {
                root.form.monitorType = modelData.type;
                if (!activeFocus)
                    root.chosenByPointer();
            }
        }
    }
}
