import QtQuick
import QtQuick.Templates

import Ostrel
import Ostrel.Theme

// Nothing but the modules that the main window is made of.
QtObject {}
