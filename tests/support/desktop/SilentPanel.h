#pragma once

#include "PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>

namespace ostrel::test {

/// A status bar that hangs: it owns the name of a StatusNotifier host, accepts every call and
/// answers none, until it recovers. Ends with this object.
class SilentPanel : public QDBusVirtualObject
{
public:
    /// @p bus outlives the panel.
    explicit SilentPanel(PrivateBus &bus);
    ~SilentPanel() override;

    /// How many calls have arrived.
    [[nodiscard]] qsizetype callCount() const { return m_calls.size(); }
    /// Refuses all calls so far, and all later ones.
    void recover();

    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusConnection m_connection;
    QList<QDBusMessage> m_calls;
    bool m_isHanging = true;
};

} // namespace ostrel::test
