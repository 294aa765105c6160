import QtQuick

import Ostrel
import Ostrel.Theme

// Names something of each module that the main window is made of, and makes none of it.
QtObject {
    readonly property Disc ofTheme: null
    readonly property FaviconImage ofViews: null
}
