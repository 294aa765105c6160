import QtQuick

// A text that screen readers can read.
QuietText {
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
