#include "ExchangeSamples.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

constexpr Timestamp newYear = std::chrono::sys_days(std::chrono::year(2026) / 1 / 1);

QUuid idOf(int number)
{
    return QUuid::fromString(u"00000000-0000-4000-8000-%1"_s.arg(number, 12, 16, QLatin1Char('0')));
}

} // namespace

Monitor website(int number, const QString &url)
{
    return {.id = idOf(number), .url = url, .createdAt = newYear};
}

Monitor portMonitor(int number, const QString &host, qint64 port)
{
    Monitor monitor = website(number, host);
    monitor.type = MonitorType::port;
    monitor.port = port;
    return monitor;
}

Check checkAt(const Monitor &monitor, int minute, bool isUp)
{
    Check check;
    check.id = idOf(0x1000 + minute);
    check.monitorId = monitor.id;
    check.timestamp = newYear + std::chrono::minutes(minute);
    check.isUp = isUp;
    check.responseTime = 250;
    return check;
}

StoredRecords recordsOf(const QList<Monitor> &monitors, const QList<Check> &checks)
{
    StoredRecords records;
    records.monitors = monitors;
    for (const Check &check : checks) {
        const QUuid id = check.monitorId;
        records.checks.try_emplace(id, id).first->second.append(check);
    }
    return records;
}

QByteArray written(const std::function<void(ContentWriter &)> &append)
{
    const QTemporaryDir folder;
    const AtomicFile file(folder.filePath(u"written"_s));
    const auto fill = [&](ContentWriter &content) {
        append(content);
        return true;
    };
    return file.write(fill, AtomicFile::Flush::none) ? file.read().value_or(QByteArray())
                                                     : QByteArray();
}

} // namespace ostrel::test
