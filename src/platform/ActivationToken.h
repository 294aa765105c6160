#pragma once

#include <QByteArray>

namespace ostrel {

/// No longer token is passed on: those that desktops make are far shorter.
inline constexpr qsizetype maxActivationTokenLength = 1024;

/// The leave to raise a window that the desktop gave to this start: what XDG_ACTIVATION_TOKEN
/// holds, else DESKTOP_STARTUP_ID. Empty where there is none, and for one that is too long or
/// isn't a single printable line.
[[nodiscard]] QByteArray activationTokenFromEnvironment();

} // namespace ostrel
