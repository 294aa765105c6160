pragma ComponentBehavior: Bound

import QtQuick

import Ostrel.Theme

// A few choices in one track, one of which is selected. `spokenName` is its label's text.
FocusScope {
    id: root

    required property string spokenName
    required property list<string> choices
    property int currentIndex: 0

    signal activated(index: int)

    function choose(index: int): void {
        if (index < 0 || index >= segments.count || index === currentIndex)
            return;
        currentIndex = index;
        activated(index);
    }

    implicitWidth: row.implicitWidth + 2 * Theme.segmentInset
    implicitHeight: Theme.segmentHeight
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.Grouping
    Accessible.name: spokenName
    Keys.onLeftPressed: choose(currentIndex - 1)
    Keys.onRightPressed: choose(currentIndex + 1)

    EdgedBox {
        anchors.fill: parent
        radius: Theme.cornerRadiusSmall
        color: Qt.alpha(Theme.ink, 0.06)
    }

    Row {
        id: row

        x: Theme.segmentInset
        y: Theme.segmentInset

        Repeater {
            id: segments

            model: root.choices

            Segment {
                required property string modelData
                required property int index

                text: modelData
                place: index
                count: segments.count
                isSelected: index === root.currentIndex
                focus: isSelected
                onClicked: root.choose(index)
                onIsSelectedChanged: {
                    if (isSelected && root.activeFocus)
                        forceActiveFocus(Qt.TabFocusReason);
                }
            }
        }
    }
}
