#include "ActivationToken.h"

#include <algorithm>

namespace ostrel {

namespace {

bool isPassable(const QByteArray &token)
{
    const auto isControl = [](char c) { return (c >= 0 && c < ' ') || c == 0x7f; };
    return token.size() <= maxActivationTokenLength && std::ranges::none_of(token, isControl);
}

} // namespace

QByteArray activationTokenFromEnvironment()
{
    const QByteArray wayland = qgetenv("XDG_ACTIVATION_TOKEN");
    const QByteArray token = wayland.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : wayland;
    return isPassable(token) ? token : QByteArray();
}

} // namespace ostrel
