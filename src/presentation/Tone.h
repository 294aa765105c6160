#pragma once

#include <QObject>

namespace ostrel {

namespace Tones {

Q_NAMESPACE

/// What the colour of a text or symbol says. The views map it to the theme's colours. Its cases
/// begin with capitals because QML reaches no others.
enum class Tone {
    Up,
    Warning,
    Down,
    Muted,     ///< Says nothing about the monitor: paused, or not known yet.
    Secondary, ///< A value that is missing.
    Accent,    ///< A property of the monitor rather than a state.
};
Q_ENUM_NS(Tone)

} // namespace Tones

using Tones::Tone;

} // namespace ostrel
