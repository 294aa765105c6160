import QtQuick

// How a control's colour goes over into another.
ColorAnimation {
    duration: Theme.quickMotion
    easing.type: Easing.InOutQuad
}
