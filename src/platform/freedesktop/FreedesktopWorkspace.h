#pragma once

#include "Workspace.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <chrono>
#include <optional>

namespace ostrel {

/// Opens addresses through the desktop's portal, `org.freedesktop.portal.OpenURI`, and folders
/// through its file manager, `org.freedesktop.FileManager1`. If one of them isn't there, refuses or
/// doesn't answer within the patience, or if there is no bus, `xdg-open` is started instead.
///
/// For the settings of notifications, a program is started; an unknown desktop has none.
class FreedesktopWorkspace final : public QObject, public Workspace
{
    Q_OBJECT

public:
    /// Includes the time to start the portal or the file manager.
    static constexpr std::chrono::milliseconds defaultPatience{25'000};

    explicit FreedesktopWorkspace(std::chrono::milliseconds patience = defaultPatience,
                                  QObject *parent = nullptr);

    /// From now on uses @p bus, which must be connected.
    void follow(const QDBusConnection &bus) { m_bus = bus; }

    QFuture<bool> open(const QUrl &url) override;
    bool openFolder(const QString &path) override;
    bool openNotificationSettings() override;

private:
    /// Sends @p call, which opens @p target, or opens it without the bus.
    QFuture<bool> ask(const QDBusMessage &call, const QString &target);
    [[nodiscard]] QFuture<bool> openWithProgram(const QString &target) const;

    std::optional<QDBusConnection> m_bus;
    std::chrono::milliseconds m_patience;
};

} // namespace ostrel
