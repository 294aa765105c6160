import QtQuick

import Ostrel.Theme

// A row's monitor is waiting for its first check, which the row itself says.
PendingRing {
    Accessible.ignored: true
}
