import QtQuick
import QtQuick.Templates as T

import Ostrel.Theme

// Says what a thing does once the pointer has rested on it. Bind `visible` to that.
T.ToolTip {
    id: root

    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height + Theme.helpTextGap : 0
    delay: Theme.helpTextDelay
    margins: Theme.helpTextGap
    leftPadding: Theme.helpTextPadding
    rightPadding: Theme.helpTextPadding
    topPadding: Theme.helpTextVerticalPadding
    bottomPadding: Theme.helpTextVerticalPadding
    implicitWidth: Math.min(implicitContentWidth, Theme.helpTextMaximum) + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    contentItem: ThemeText {
        objectName: "helpText"
        text: root.text
        font: Theme.footnote
        color: Theme.accentText
        wrapMode: Text.Wrap
    }

    background: EdgedBox {
        radius: Theme.helpTextRadius
        color: Theme.ink
    }
}
