#include "Demo.h"

#include "CheckJson.h"
#include "FaviconService.h"
#include "IconFolder.h"
#include "MonitorJson.h"
#include "StorageFolder.h"
#include "StoredRecords.h"
#include "UuidText.h"

#include <QFile>
#include <QSettings>

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// The stored form of the histories of @p monitors.
std::string histories(const std::vector<DemoMonitor> &monitors, Timestamp now)
{
    std::string json;
    for (const DemoMonitor &each : monitors) {
        const auto id = formatUuid(each.monitor.id);
        json += json.empty() ? "[\"" : ",\"";
        json.append(id.data(), id.size());
        json += "\",";
        char before = '[';
        for (const Check &check : demoHistory(each.monitor, each.past, now)) {
            json += std::exchange(before, ',');
            appendCheck(json, check);
        }
        json += ']';
    }
    return json + ']';
}

} // namespace

bool Demo::start()
{
    if (!m_folder.isValid())
        return fail(m_folder.errorString());
    const Timestamp now = systemNow();
    if (!m_sites.start(now))
        return fail(u"no free port of this computer"_s);
    if (!writeRecords(now))
        return fail(u"can't write to "_s + m_folder.path());
    writeIcons();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, preferencesDir());
    return true;
}

QString Demo::dataDir() const
{
    return m_folder.filePath(u"data"_s);
}

QString Demo::preferencesDir() const
{
    return m_folder.filePath(u"preferences"_s);
}

QByteArray Demo::trustBundle(const QByteArray &others) const
{
    QFile bundle(QFile::decodeName(others));
    QByteArray content = m_sites.authority();
    if (!others.isEmpty() && bundle.open(QIODevice::ReadOnly))
        content += bundle.readAll();
    const QString path = m_folder.filePath(u"authorities.pem"_s);
    return writeFile(path, content) ? QFile::encodeName(path) : QByteArray();
}

bool Demo::writeRecords(Timestamp now)
{
    createPrivateFolder(dataDir());
    QList<Monitor> monitors;
    for (const DemoMonitor &each : m_sites.monitors())
        monitors += each.monitor;
    const std::string checks = histories(m_sites.monitors(), now);
    return writeFile(StoredRecords::monitorsPath(dataDir()), encodeMonitors(monitors)) &&
           writeFile(StoredRecords::checksPath(dataDir()),
                     QByteArray(checks.data(), qsizetype(checks.size())));
}

void Demo::writeIcons() const
{
    const IconFolder folder(dataDir() + u"/favicons"_s);
    const auto icons = m_sites.icons();
    for (const auto &[address, icon] : icons.asKeyValueRange()) {
        if (const auto domain = FaviconService::domain(address))
            folder.write(*domain, icon);
    }
}

bool Demo::fail(const QString &reason)
{
    m_reason = reason;
    return false;
}

} // namespace ostrel
