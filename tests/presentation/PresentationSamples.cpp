#include "PresentationSamples.h"

using namespace Qt::StringLiterals;

namespace ostrel::test {

using namespace std::chrono_literals;

Timestamp sampleNow()
{
    return *parseTimestamp("2026-11-20T15:42:00Z");
}

Monitor sampleMonitor(const QString &name)
{
    return {
        .id = QUuid::createUuid(),
        .name = name,
        .url = u"https://shop.example/cart/"_s,
        .createdAt = sampleNow() - 24h,
    };
}

Check upCheck(const Monitor &monitor, Timestamp timestamp, double responseTime)
{
    return {
        .id = QUuid::createUuid(),
        .monitorId = monitor.id,
        .timestamp = timestamp,
        .statusCode = 200,
        .isUp = true,
        .responseTime = responseTime,
    };
}

Check downCheck(const Monitor &monitor, Timestamp timestamp, const OptionalText &error)
{
    return {
        .id = QUuid::createUuid(),
        .monitorId = monitor.id,
        .timestamp = timestamp,
        .responseTime = 30,
        .error = error,
    };
}

std::vector<Check> upChecks(const Monitor &monitor, int count, Timestamp newest)
{
    std::vector<Check> checks;
    for (int i = 0; i < count; ++i)
        checks.push_back(upCheck(monitor, newest - (count - 1 - i) * 1min, 100 + i));
    return checks;
}

Monitor SampleStore::add(Monitor monitor, const std::vector<Check> &checks)
{
    store.addMonitor(monitor);
    for (const Check &check : checks)
        store.addCheck(check);
    return monitor;
}

} // namespace ostrel::test
