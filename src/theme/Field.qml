pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// A single-line text field. `spokenName` is its label's text.
T.TextField {
    id: root

    readonly property color fieldEdge: Theme.faint(Theme.accent, 0.14)
    readonly property color fieldEdgeHover: Theme.faint(Theme.accent, 0.28)
    readonly property real caretWidth: 1.5

    required property string spokenName
    property bool showsHover: hovered
    property bool showsFocus: activeFocus
    // Shown at the end of the field, for example a check mark.
    property string trailingSymbol: ""
    property color trailingColor: Theme.statusUp
    property string trailingName: ""
    // True once the template has set the description to the placeholder, which is then replaced.
    property bool isComplete: false
    // Null until it is first asked for.
    property FieldMenu menu: null

    function openMenu(x: real, y: real): void {
        if (!menu)
            menu = menuComponent.createObject(root) as FieldMenu;
        menu.popup(root, x, y);
    }

    implicitWidth: Theme.thresholdFieldWidth
    implicitHeight: 34
    leftPadding: Theme.fieldPadding
    rightPadding: Theme.fieldPadding + (trailingSymbol !== "" ? trailing.width + Theme.controlGap - Theme.tightSpacing : 0)
    verticalAlignment: TextInput.AlignVCenter
    renderType: ScreenGrid.isCoarse ? TextInput.NativeRendering : TextInput.QtRendering
    font: Theme.body
    color: Theme.textPrimary
    placeholderTextColor: Theme.faint(Theme.ink, 0.35)
    selectionColor: Theme.textSelection
    selectedTextColor: Theme.textPrimary
    selectByMouse: true
    // Without the focus, a long text shows its beginning.
    autoScroll: activeFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    // The menu takes the keyboard, and works on the selection.
    persistentSelection: true
    Component.onCompleted: isComplete = true
    onActiveFocusChanged: {
        const isByTab = focusReason === Qt.TabFocusReason || focusReason === Qt.BacktabFocusReason;
        if (activeFocus && isByTab)
            selectAll();
        else if (!activeFocus && !(menu?.visible ?? false))
            deselect();
    }
    onPressed: event => {
        if (event.button === Qt.RightButton) {
            forceActiveFocus(Qt.MouseFocusReason);
            openMenu(event.x, event.y);
        }
    }
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Menu || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier);
        if (event.accepted)
            openMenu(cursorRectangle.x, height);
    }
    Accessible.name: spokenName
    Accessible.description: isComplete && trailingSymbol !== "" ? trailingName : ""

    cursorDelegate: Item {
        id: caret

        property bool isLit: true

        width: root.caretWidth
        visible: root.activeFocus && root.cursorVisible && isLit

        // On a whole pixel, so that it is as wide after every letter.
        Rectangle {
            x: Math.round(caret.x) - caret.x
            width: parent.width
            height: parent.height
            color: Theme.accent
        }

        Timer {
            running: root.activeFocus && !root.readOnly && interval > 0
            repeat: true
            interval: Application.styleHints.cursorFlashTime / 2
            onTriggered: caret.isLit = !caret.isLit
            onRunningChanged: caret.isLit = true
        }
    }

    background: EdgedBox {
        radius: Theme.cornerRadiusSmall
        color: Theme.surface
        edge: {
            if (root.showsFocus)
                return Theme.focusEdge;
            return root.showsHover ? root.fieldEdgeHover : root.fieldEdge;
        }
        edgeWidth: root.showsFocus ? Theme.focusRingWidth : Theme.hairlineWidth
    }

    QuietText {
        anchors.left: parent.left
        // Beside the caret, which is where a text begins.
        anchors.leftMargin: root.leftPadding + root.caretWidth
        anchors.right: parent.right
        anchors.rightMargin: root.rightPadding
        anchors.verticalCenter: parent.verticalCenter
        visible: root.text === "" && root.preeditText === ""
        text: root.placeholderText
        font: root.font
        color: root.placeholderTextColor
        horizontalAlignment: root.horizontalAlignment
    }

    Symbol {
        id: trailing

        anchors.right: parent.right
        anchors.rightMargin: Theme.controlGap
        anchors.verticalCenter: parent.verticalCenter
        visible: root.trailingSymbol !== ""
        name: root.trailingSymbol
        systemSize: 16
        color: root.trailingColor
    }

    Component {
        id: menuComponent

        FieldMenu {
            field: root
            title: root.spokenName
        }
    }
}
