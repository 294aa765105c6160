import Ostrel.Theme

// Shows that a row of the sidebar has the keyboard.
FocusRing {
    isInside: true
}
