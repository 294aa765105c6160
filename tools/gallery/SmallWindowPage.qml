import Ostrel.Theme

// What stands in the smallest window.
WindowPage {
    width: Theme.windowMinimumWidth
    height: Theme.windowMinimumHeight
}
