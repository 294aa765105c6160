#pragma once

#include "AccessibleNode.h"
#include "BoundProcess.h"
#include "PrivateBus.h"
#include "VirtualDisplay.h"

#include <QTemporaryDir>

#include <optional>

namespace ostrel::test {

/// The real accessibility bus (at-spi2-core) of the test's own session and display, as a screen
/// reader is connected to it. Ends with this object.
class AccessibilityBus
{
public:
    /// @p session and @p display outlive it. The bus isn't started yet.
    AccessibilityBus(PrivateBus &session, const VirtualDisplay &display);
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus &) = delete;
    AccessibilityBus &operator=(const AccessibilityBus &) = delete;

    /// Starts it, and returns when programs can register; false if they never can.
    [[nodiscard]] bool start();

    /// The connection to the started bus, for those who listen to it.
    [[nodiscard]] QDBusConnection connection() const { return QDBusConnection(m_connectionName); }
    /// The program with the process id @p processId; nothing while it isn't registered.
    [[nodiscard]] std::optional<AccessibleNode> program(qint64 processId);

private:
    PrivateBus &m_session;
    QString m_display;
    QTemporaryDir m_folder;
    BoundProcess m_launcher;
    QString m_connectionName;
};

} // namespace ostrel::test
