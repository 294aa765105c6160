import Ostrel.Theme

// The content of the smallest window.
WindowPage {
    width: Theme.windowMinimumWidth
    height: Theme.windowMinimumHeight
}
