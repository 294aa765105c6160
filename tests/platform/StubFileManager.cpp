#include "StubFileManager.h"

using namespace Qt::StringLiterals;

namespace ostrel::test {

StubFileManager::StubFileManager(PrivateBus &bus)
    : m_connection(bus.connect())
{
    m_connection.registerObject(u"/org/freedesktop/FileManager1"_s, this,
                                QDBusConnection::ExportAllSlots);
    m_connection.registerService(u"org.freedesktop.FileManager1"_s);
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
