#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace ostrel {

/// Who has a well-known name on a bus. Main thread, and nothing here ever waits for the bus.
///
/// Who wants the signals of a service connects to those of every sender, and takes the owner's
/// alone: QDBusConnection::connect() with a well-known name waits until the bus has told its owner.
class NameOwner : public QObject
{
    Q_OBJECT

public:
    explicit NameOwner(const QString &name, QObject *parent = nullptr);

    /// Looks for the owner on @p bus, which is connected. At most once.
    void follow(const QDBusConnection &bus);
    /// A unique name; empty while nobody is known to have the name.
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
