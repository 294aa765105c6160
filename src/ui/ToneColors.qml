pragma Singleton

import QtQuick

import Ostrel
import Ostrel.Theme

// The theme's colour for each tone of a text or symbol.
QtObject {
    function of(tone: int): color {
        switch (tone) {
        case Tone.Up:
            return Theme.statusUp;
        case Tone.Warning:
            return Theme.warning;
        case Tone.Down:
            return Theme.statusDown;
        case Tone.Secondary:
            return Theme.textSecondary;
        case Tone.Accent:
            return Theme.accent;
        default:
            return Theme.statusMuted;
        }
    }
}
