#pragma once

#include <QObject>

namespace ostrel {

/// Only contains Tone, since QML accepts enumerations only from a type or a namespace.
namespace Tones {

Q_NAMESPACE

/// The meaning of a text's or symbol's colour. ToneColors maps it to the theme's colours. QML only
/// sees cases that begin with a capital.
enum class Tone {
    Up,
    Warning,
    Down,
    Muted,     ///< Not about the monitor's state: paused, or not known yet.
    Secondary, ///< A missing value.
    Accent,    ///< A property of the monitor rather than a state.
};
Q_ENUM_NS(Tone)

} // namespace Tones

using Tones::Tone;

} // namespace ostrel
