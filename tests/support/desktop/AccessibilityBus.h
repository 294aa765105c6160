#pragma once

#include "AccessibleNode.h"
#include "BoundProcess.h"
#include "PrivateBus.h"
#include "VirtualDisplay.h"

#include <QTemporaryDir>

#include <optional>

namespace ostrel::test {

/// The real accessibility bus (at-spi2-core) of a session and display of the test's own, as a
/// screen reader is connected to it. Ends with this object.
class AccessibilityBus
{
public:
    /// @p session and @p display outlive it. It isn't started yet.
    AccessibilityBus(PrivateBus &session, const VirtualDisplay &display);
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus &) = delete;
    AccessibilityBus &operator=(const AccessibilityBus &) = delete;

    /// Starts it, and returns when programs can register; false where they never can.
    [[nodiscard]] bool start();

    /// Where it is started, for whoever listens to it.
    [[nodiscard]] QDBusConnection connection() const { return QDBusConnection(m_connectionName); }
    /// The program of the process @p processId; nothing while it isn't registered.
    [[nodiscard]] std::optional<AccessibleNode> program(qint64 processId);

private:
    PrivateBus &m_session;
    QString m_display;
    QTemporaryDir m_folder;
    BoundProcess m_launcher;
    QString m_connectionName;
};

} // namespace ostrel::test
