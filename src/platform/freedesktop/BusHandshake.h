#pragma once

#include <QByteArray>
#include <QDeadlineTimer>

namespace ostrel {

enum class BusAnswer {
    given,   ///< It talks to us.
    awaited, ///< It is there, but hasn't sent all that a bus sends, or has hung up.
    none,    ///< There is no bus.
};

/// Authenticates to the message bus at @p addresses, the value of a variable such as
/// DBUS_SESSION_BUS_ADDRESS, and asks it a question, on a connection of its own. Waits at most
/// until @p deadline. Any thread.
///
/// The bus libraries would wait for ever, and hold locks that their other users need.
[[nodiscard]] BusAnswer askBus(const QByteArray &addresses, const QDeadlineTimer &deadline);

} // namespace ostrel
