#include "FullFolder.h"

#include "MonitorJson.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace ostrel::bench {

namespace {

constexpr Timestamp firstTimestamp = std::chrono::sys_days(std::chrono::year(2026) / 11 / 1);
constexpr auto checkInterval = std::chrono::seconds(60);

} // namespace

Check CheckSource::next(const QUuid &monitorId)
{
    const int number = m_number++;
    Check check;
    check.id = QUuid::createUuid();
    check.monitorId = monitorId;
    check.timestamp = firstTimestamp + number % 100000 * checkInterval;
    check.responseTime = std::uniform_int_distribution(80'000, 900'000)(m_random) / 1000.0;
    check.isUp = number % 50 != 0;
    check.statusCode = check.isUp ? 200 : 503;
    check.sslExpiresAt = firstTimestamp + std::chrono::days(80);
    if (!check.isUp)
        check.error = u"HTTP 503 Service Unavailable"_s;
    return check;
}

std::vector<QUuid> fillFolder(const QString &folder, int monitors)
{
    CheckSource source;
    std::vector<QUuid> ids;
    CheckHistories histories;
    for (int i = 0; i < monitors; ++i) {
        const QUuid id = ids.emplace_back(QUuid::createUuid());
        auto &history = histories.try_emplace(id, id).first->second;
        for (std::size_t j = 0; j < checksPerMonitor; ++j)
            history.append(source.next(id));
    }
    QDir().mkpath(folder);
    const auto fill = [&](ContentWriter &content) {
        return HistoriesWriter().write(histories, FileSnapshot(), content);
    };
    (void)AtomicFile(folder + u"/checks.json"_s).write(fill, AtomicFile::Flush::none);
    return ids;
}

QList<Monitor> monitorsOf(const std::vector<QUuid> &ids, const QString &url)
{
    QList<Monitor> monitors;
    for (const QUuid &id : ids) {
        Monitor monitor = {.id = id};
        monitor.name = u"Shop %1"_s.arg(monitors.size() + 1);
        monitor.url = url;
        monitor.interval = std::chrono::seconds(300);
        monitors += monitor;
    }
    return monitors;
}

void writeMonitors(const QString &folder, const QList<Monitor> &monitors)
{
    QFile file(folder + u"/monitors.json"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write(encodeMonitors(monitors));
}

Timestamp fullFolderNow()
{
    return firstTimestamp + checksPerMonitor * checkInterval;
}

std::string checksPath(const QString &folder)
{
    return QFile::encodeName(folder + u"/checks.json"_s).toStdString();
}

} // namespace ostrel::bench
