pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// A choice from a menu. `spokenName` is its label's text.
T.ComboBox {
    id: root

    required property string spokenName
    property bool showsHover: hovered
    property bool showsFocus: visualFocus

    // Return was pressed while the menu is closed.
    signal returnPressed

    // The template would keep it to itself.
    function takeReturn(event: KeyEvent): void {
        event.accepted = !popup.visible;
        if (event.accepted && !event.isAutoRepeat)
            returnPressed();
    }

    function choose(index: int): void {
        currentIndex = index;
        activated(index);
        popup.close();
    }

    implicitWidth: Math.max(Theme.keywordModeWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: 34
    leftPadding: Theme.fieldPadding
    rightPadding: Theme.fieldPadding + indicator.width
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    font: Theme.body
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.name: spokenName
    Accessible.description: displayText
    Accessible.onPressAction: popup.open()
    Keys.onReturnPressed: event => takeReturn(event)
    Keys.onEnterPressed: event => takeReturn(event)

    contentItem: ButtonLabel {
        isCentred: false
        text: root.displayText
        font: root.font
    }

    indicator: Symbol {
        x: root.width - width - Theme.controlGap
        y: Theme.centred(root.height, height)
        name: "chevron.up.chevron.down"
        color: Theme.textSecondary
    }

    // Entries are only counted if there is a delegate; the popup draws its own rows.
    delegate: Item {}

    background: QuietBox {
        radius: Theme.cornerRadiusSmall
        isHovered: root.showsHover
        isPressed: root.down
    }

    popup: T.Popup {
        y: root.height + Theme.menuOffset
        width: root.width
        padding: Theme.menuPadding
        // Otherwise Escape, meant for the menu, would go to the item that had the focus.
        onAboutToShow: {
            if (!root.activeFocus)
                root.forceActiveFocus(Qt.PopupFocusReason);
        }
        implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
        background: MenuSurface {}

        contentItem: ListView {
            clip: true
            Accessible.role: Accessible.List
            Accessible.name: root.spokenName
            implicitHeight: contentHeight
            model: root.count
            currentIndex: root.highlightedIndex
            // All entries are shown.
            interactive: false
            delegate: PickerItem {
                required property int index

                width: ListView.view.width
                text: root.textAt(index)
                isCurrent: root.currentIndex === index
                highlighted: root.highlightedIndex === index
                onClicked: root.choose(index)
            }
        }

        FocusVoice {
            item: root.popup.visible ? (root.popup.contentItem as ListView).currentItem : null
        }

        // Its list has all that assistive tools need.
        Binding {
            target: root.popup.contentItem.parent
            property: "Accessible.ignored"
            value: true
        }
    }

    ReturningFocus {
        control: root
    }

    FocusRing {
        visible: root.showsFocus && !root.popup.visible
        controlRadius: Theme.cornerRadiusSmall
    }
}
