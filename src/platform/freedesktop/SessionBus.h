#pragma once

#include <QDBusConnection>

namespace ostrel {

/// The session's message bus; a connection that isn't connected where the environment names none.
/// Never starts a bus, which takes seconds and serves nobody.
[[nodiscard]] QDBusConnection sessionBus();

} // namespace ostrel
