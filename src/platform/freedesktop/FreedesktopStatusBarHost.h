#pragma once

#include "NameOwner.h"
#include "StatusBarHost.h"

#include <optional>

namespace ostrel {

/// The StatusNotifier host on the session bus, which reads an item's menu over the bus
/// (`com.canonical.dbusmenu`). Without a bus none ever appears.
class FreedesktopStatusBarHost final : public StatusBarHost
{
    Q_OBJECT

public:
    explicit FreedesktopStatusBarHost(QObject *parent = nullptr);

    /// @p bus must be connected. Call at most once.
    void follow(const QDBusConnection &bus);

    /// True as long as there is a bus without a host that answers.
    [[nodiscard]] bool isAwaited() const override;
    [[nodiscard]] bool isSilent() const override;
    [[nodiscard]] QString menuText(const QString &text) const override;
    /// True on the desktops that are made with this program's toolkit.
    [[nodiscard]] bool hasOurPalette() const override;

private:
    void noteHost();
    void askHost();
    void noteAnswer(const QString &host);

    std::optional<QDBusConnection> m_bus;
    NameOwner m_host;
    bool m_isThere = false; ///< The host is there and has answered.
};

} // namespace ostrel
