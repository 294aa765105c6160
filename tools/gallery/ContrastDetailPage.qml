import QtQuick

import Ostrel.Theme

// The page of one monitor with high contrast.
DetailPage {
    Component.onCompleted: {
        Theme.reducedMotion = true;
        Theme.highContrast = true;
    }
}
