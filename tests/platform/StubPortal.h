#pragma once

#include "PrivateBus.h"

#include <QDBusContext>
#include <QDBusObjectPath>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace ostrel::test {

/// A desktop's portal that keeps the addresses that it is asked to open.
class StubPortal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.OpenURI")

public:
    enum class Behaviour {
        opens,
        refuses, ///< Answers with an error.
        hangs,   ///< Never answers.
    };

    /// @p bus outlives it.
    explicit StubPortal(PrivateBus &bus, Behaviour behaviour = Behaviour::opens);
    ~StubPortal() override;

    /// All addresses, including refused ones.
    [[nodiscard]] const QStringList &addresses() const { return m_addresses; }

public Q_SLOTS:
    // The protocol's name and arguments.
    QDBusObjectPath OpenURI(const QString &parentWindow, const QString &address,
                            const QVariantMap &options);

private:
    QDBusConnection m_connection;
    Behaviour m_behaviour;
    QStringList m_addresses;
};

} // namespace ostrel::test
