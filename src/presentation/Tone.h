#pragma once

#include <QObject>

namespace ostrel {

/// Holds Tone alone, since QML takes enumerations only from a type or a namespace.
namespace Tones {

Q_NAMESPACE

/// What the colour of a text or symbol says. ToneColors maps it to the theme's colours. QML reaches
/// only cases that begin with a capital.
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
