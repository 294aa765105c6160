#pragma once

#include "BoundProcess.h"

#include <QDBusConnection>
#include <QStringList>
#include <QTemporaryDir>

namespace ostrel::test {

/// A message bus of the test's own: a real dbus-daemon with its socket and configuration in a fresh
/// folder. Ends with this object, as does every connection made through it.
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

    /// False if the daemon didn't start; nothing else is usable then.
    [[nodiscard]] bool isRunning() const { return !m_address.isEmpty(); }
    /// The value for DBUS_SESSION_BUS_ADDRESS or DBUS_SYSTEM_BUS_ADDRESS.
    [[nodiscard]] const QString &address() const { return m_address; }

    /// A new connection, a peer of its own on the bus.
    [[nodiscard]] QDBusConnection connect();
    /// Whether a program now owns @p name.
    [[nodiscard]] bool hasOwner(const QString &name);
    /// From now on, the bus starts @p command, an absolute path with arguments, if @p name is
    /// called and has no owner.
    void makeActivatable(const QString &name, const QString &command);
    /// From now on, the bus accepts connections and bytes, but answers nothing, until it is thawed.
    void freeze();
    void thaw();
    /// Ends the bus before this object ends.
    void stop();

private:
    void writeConfiguration(Kind kind) const;

    QTemporaryDir m_folder;
    BoundProcess m_daemon;
    QString m_address;
    QStringList m_connections; ///< By name.
};

} // namespace ostrel::test
