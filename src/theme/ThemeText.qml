import QtQuick

// A text that a screen reader can name.
QuietText {
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
