#pragma once

#include "SessionBus.h"
#include "StatusBarHost.h"

#include <QDBusServiceWatcher>

namespace ostrel {

/// The StatusNotifier host on the session bus, which reads an item's menu over the bus
/// (`com.canonical.dbusmenu`). Without a bus none ever appears.
class FreedesktopStatusBarHost final : public StatusBarHost
{
    Q_OBJECT

public:
    explicit FreedesktopStatusBarHost(const QDBusConnection &bus = sessionBus(),
                                      QObject *parent = nullptr);

    /// For as long as there is a bus without one.
    [[nodiscard]] bool isAwaited() const override;
    [[nodiscard]] QString menuText(const QString &text) const override;
    /// On the desktops that are made with this program's toolkit.
    [[nodiscard]] bool hasOurPalette() const override;

private:
    void findHost();
    void noteHost(const QString &owner);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    bool m_isThere = false;
};

} // namespace ostrel
