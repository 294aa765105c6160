#pragma once

#include <QByteArray>

namespace ostrel {

/// Longer tokens aren't passed on: those that desktops make are far shorter.
inline constexpr qsizetype maxActivationTokenLength = 1024;

/// The desktop's permission for this start to raise a window: the value of XDG_ACTIVATION_TOKEN,
/// else of DESKTOP_STARTUP_ID. Empty if there is none, or if it is too long or isn't a single
/// printable line.
[[nodiscard]] QByteArray activationTokenFromEnvironment();

} // namespace ostrel
