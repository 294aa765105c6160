import QtQuick

import Ostrel.Theme

// The sheet with high contrast.
FormPage {
    Component.onCompleted: {
        Theme.reducedMotion = true;
        Theme.highContrast = true;
    }
}
