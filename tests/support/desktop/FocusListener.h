#pragma once

#include "AccessibleNode.h"

#include <QDBusMessage>
#include <QObject>

namespace ostrel::test {

/// Hears, as a screen reader does, where the keyboard goes, at the moment when it goes there.
class FocusListener : public QObject
{
    Q_OBJECT

public:
    /// @p bus is an accessibility bus. Programs tell nothing before somebody listens.
    explicit FocusListener(const QDBusConnection &bus);

    /// The names of all that has come to have the keyboard, in order.
    [[nodiscard]] QStringList heard() const;
    void forget() { m_heard.clear(); }

private Q_SLOTS:
    void stateChanged(const QDBusMessage &event);

private:
    QDBusConnection m_bus;
    QList<AccessibleNode> m_heard;
};

} // namespace ostrel::test
