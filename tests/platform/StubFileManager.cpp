#include "StubFileManager.h"

namespace ostrel::test {

StubFileManager::StubFileManager(PrivateBus &bus)
    : m_connection(bus.connect())
{
    m_connection.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), this,
                                QDBusConnection::ExportAllSlots);
    m_connection.registerService(QStringLiteral("org.freedesktop.FileManager1"));
}

StubFileManager::~StubFileManager()
{
    QDBusConnection::disconnectFromBus(m_connection.name());
}

void StubFileManager::ShowFolders(const QStringList &addresses, const QString &)
{
    m_folders += addresses;
}

} // namespace ostrel::test
