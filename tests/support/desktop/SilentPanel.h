#pragma once

#include "PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>

namespace ostrel::test {

/// A status bar that hangs: it has the name of a StatusNotifier host, takes every call and answers
/// none, until it recovers. Ends with this object.
class SilentPanel : public QDBusVirtualObject
{
public:
    /// @p bus outlives the panel.
    explicit SilentPanel(PrivateBus &bus);
    ~SilentPanel() override;

    /// How many calls have come.
    [[nodiscard]] qsizetype callCount() const { return m_calls.size(); }
    /// Refuses what has been asked, and whatever will be.
    void recover();

    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusConnection m_connection;
    QList<QDBusMessage> m_calls;
    bool m_isHanging = true;
};

} // namespace ostrel::test
