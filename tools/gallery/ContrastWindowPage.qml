import QtQuick

import Ostrel.Theme

// The content of the window with high contrast.
WindowPage {
    Component.onCompleted: {
        Theme.reducedMotion = true;
        Theme.highContrast = true;
    }
}
