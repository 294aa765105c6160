#pragma once

#include "AccessibleNode.h"

#include <QDBusMessage>
#include <QObject>

namespace ostrel::test {

/// Notices at once where the keyboard focus goes, as a screen reader does.
class FocusListener : public QObject
{
    Q_OBJECT

public:
    /// @p bus is an accessibility bus. Programs send nothing until there is a listener.
    explicit FocusListener(const QDBusConnection &bus);

    /// The names of all things that have received the focus, in order.
    [[nodiscard]] QStringList heard() const;
    void forget() { m_heard.clear(); }

private Q_SLOTS:
    void stateChanged(const QDBusMessage &event);

private:
    QDBusConnection m_bus;
    QList<AccessibleNode> m_heard;
};

} // namespace ostrel::test
