#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace ostrel {

/// The owner of a well-known name on a bus. Main thread; never waits for the bus.
///
/// To receive the signals of a service, connect to those of every sender, and accept only the
/// owner's: QDBusConnection::connect() with a well-known name waits until the bus has reported its
/// owner.
class NameOwner : public QObject
{
    Q_OBJECT

public:
    explicit NameOwner(const QString &name, QObject *parent = nullptr);

    /// Queries the owner on @p bus, which must be connected. Call at most once.
    void follow(const QDBusConnection &bus);
    /// A unique name; empty if no owner is known.
    [[nodiscard]] const QString &uniqueName() const { return m_uniqueName; }

Q_SIGNALS:
    void changed();

private:
    void ask(const QDBusConnection &bus);
    void note(const QString &uniqueName);

    QString m_name;
    QString m_uniqueName;
    QDBusServiceWatcher m_watcher;
};

} // namespace ostrel
