import Ostrel.Theme

// Shows that a card has the keyboard.
FocusRing {
    controlRadius: Theme.cornerRadius
}
