import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// Explains an item once the pointer has rested on it, or once it has had the keyboard focus for as
// long. Bind `visible` to that.
T.ToolTip {
    id: root

    readonly property real helpTextRadius: 6
    readonly property real helpTextPadding: 8
    readonly property real helpTextVerticalPadding: 5
    readonly property real helpTextGap: 6
    readonly property real helpTextMaximum: 320
    readonly property int helpTextLines: 16

    x: parent ? Theme.centred(parent.width, width) : 0
    y: parent ? parent.height + root.helpTextGap : 0
    // No binding, which could be evaluated after that of `visible`.
    delay: 600
    margins: root.helpTextGap
    leftPadding: root.helpTextPadding
    rightPadding: root.helpTextPadding
    topPadding: root.helpTextVerticalPadding
    bottomPadding: root.helpTextVerticalPadding
    implicitWidth: Math.min(implicitContentWidth, root.helpTextMaximum) + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    contentItem: LineText {
        objectName: "helpText"
        text: root.text
        font: Theme.footnote
        color: Theme.accentText
        wrapMode: Text.Wrap
        maximumLineCount: root.helpTextLines
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    background: EdgedBox {
        radius: root.helpTextRadius
        color: Theme.ink
    }
}
