import QtQuick
import QtQuick.Templates as T

// A button that stands for one of several choices. What is taken, its owner says through
// `isSelected`. BaseButton's twin: only this template is a radio button to a screen reader.
T.RadioButton {
    id: root

    property bool isSelected: false
    property real radius: Theme.cornerRadiusSmall
    property bool showsHover: hovered
    property bool showsFocus: visualFocus

    function press(): void {
        root.toggle();
        root.clicked();
    }

    // Found by their names. As handlers, the actions would be offered twice.
    function accessiblePressAction(): void {
        if (root.enabled)
            press();
    }

    function accessibleToggleAction(): void {
        accessiblePressAction();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : Theme.disabledOpacity
    onIsSelectedChanged: checked = isSelected
    Component.onCompleted: checked = isSelected
    Accessible.name: text
    Accessible.description: enabled ? "" : qsTr("Unavailable")
    Keys.onReturnPressed: event => {
        if (!event.isAutoRepeat)
            press();
    }
    Keys.onEnterPressed: event => {
        if (!event.isAutoRepeat)
            press();
    }

    FocusRing {
        visible: root.showsFocus
        controlRadius: root.radius
    }
}
