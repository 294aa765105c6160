import QtQuick
import QtQuick.Templates as T

import Ostrel
import Ostrel.Theme

// Names something of each module that the main window is made of, and makes none of it.
QtObject {
    readonly property T.Control ofTemplates: null
    readonly property Disc ofTheme: null
    readonly property FaviconImage ofViews: null
}
