import QtQuick

// A button that stands for one of several choices. Pressing it only asks: what is taken, its owner
// says.
BaseButton {
    id: root

    property bool isSelected: false

    // The two make it a radio button to a screen reader.
    checkable: true
    autoExclusive: true
    onIsSelectedChanged: checked = isSelected
    onCheckedChanged: checked = isSelected
    Component.onCompleted: checked = isSelected
}
