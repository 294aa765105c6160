#pragma once

#include <QObject>

namespace ostrel {

/// Makes Tone known to QML, which takes enumerations only from inside a type, and reaches only
/// cases that begin with a capital.
struct Tones
{
    Q_GADGET

public:
    /// What the colour of a text or symbol says. The views map it to the theme's colours.
    enum class Tone {
        Up,
        Warning,
        Down,
        Muted,     ///< Says nothing about the monitor: paused, or not known yet.
        Secondary, ///< A value that is missing.
        Accent,    ///< A property of the monitor rather than a state.
    };
    Q_ENUM(Tone)
};
using Tone = Tones::Tone;

} // namespace ostrel
