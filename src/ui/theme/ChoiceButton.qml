import QtQuick

// A button that stands for one of several choices. What is taken, its owner says through
// `isSelected`.
BaseButton {
    id: root

    property bool isSelected: false

    // Found by its name. As a handler, the action would be offered twice.
    function accessibleToggleAction(): void {
        accessiblePressAction();
    }

    checked: isSelected
    Accessible.role: Accessible.RadioButton
}
