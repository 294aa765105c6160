#pragma once

#include "Workspace.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <chrono>
#include <optional>

namespace ostrel {

/// Opens addresses through the desktop's portal, `org.freedesktop.portal.OpenURI`, and folders
/// through its file manager, `org.freedesktop.FileManager1`. Where one of them isn't there, refuses
/// or doesn't answer within the patience, `xdg-open` is started instead, as it is without a bus.
///
/// The settings of notifications are a program that is started; an unknown desktop has none.
class FreedesktopWorkspace final : public QObject, public Workspace
{
    Q_OBJECT

public:
    /// Starting the portal or the file manager counts as part of its answer.
    static constexpr std::chrono::milliseconds defaultPatience{25'000};

    explicit FreedesktopWorkspace(std::chrono::milliseconds patience = defaultPatience,
                                  QObject *parent = nullptr);

    /// Uses @p bus, which is connected, from now on.
    void follow(const QDBusConnection &bus) { m_bus = bus; }

    bool open(const QUrl &url) override;
    bool openFolder(const QString &path) override;
    bool openNotificationSettings() override;

private:
    /// Sends @p call, which opens @p target, or does without it.
    bool ask(const QDBusMessage &call, const QString &target);

    std::optional<QDBusConnection> m_bus;
    std::chrono::milliseconds m_patience;
};

} // namespace ostrel
