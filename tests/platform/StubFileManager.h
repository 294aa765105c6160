#pragma once

#include "PrivateBus.h"

#include <QObject>
#include <QStringList>

namespace ostrel::test {

/// A desktop's file manager that keeps the addresses of the folders that it is asked to show.
class StubFileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    /// @p bus outlives it.
    explicit StubFileManager(PrivateBus &bus);
    ~StubFileManager() override;

    [[nodiscard]] const QStringList &folders() const { return m_folders; }

public Q_SLOTS:
    // The protocol's name and arguments.
    void ShowFolders(const QStringList &addresses, const QString &startupId);

private:
    QDBusConnection m_connection;
    QStringList m_folders;
};

} // namespace ostrel::test
