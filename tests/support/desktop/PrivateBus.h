#pragma once

#include "BoundProcess.h"

#include <QDBusConnection>
#include <QStringList>
#include <QTemporaryDir>

namespace ostrel::test {

/// A message bus of the test's own: a real dbus-daemon with its socket and configuration in a
/// fresh folder. Ends with this object, and every connection made through it as well.
class PrivateBus
{
public:
    enum class Kind {
        session, ///< Everything is allowed.
        system,  ///< Method calls go only to logind and NetworkManager; this user may own their
                 ///< names.
    };

    explicit PrivateBus(Kind kind = Kind::session);
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    /// False where the daemon didn't start; the rest is of no use then.
    [[nodiscard]] bool isRunning() const { return !m_address.isEmpty(); }
    /// For DBUS_SESSION_BUS_ADDRESS or DBUS_SYSTEM_BUS_ADDRESS.
    [[nodiscard]] const QString &address() const { return m_address; }

    /// A new connection, a peer of its own on the bus.
    [[nodiscard]] QDBusConnection connect();
    /// Whether a program has @p name at the moment.
    [[nodiscard]] bool hasOwner(const QString &name);
    /// From now on the bus starts @p command, an absolute path with arguments, when @p name is
    /// called and nobody has it.
    void makeActivatable(const QString &name, const QString &command);
    /// From now on the bus takes connections and bytes, but answers nothing, until it is thawed.
    void freeze();
    void thaw();
    /// Ends the bus before its time.
    void stop();

private:
    void writeConfiguration(Kind kind) const;

    QTemporaryDir m_folder;
    BoundProcess m_daemon;
    QString m_address;
    QStringList m_connections; ///< By name.
};

} // namespace ostrel::test
