#include "Monitor.h"

#include "Address.h"

#include <QHashFunctions>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

/// The first of @p all with the raw value @p value.
template<typename Enumeration, std::size_t count, typename Value>
std::optional<Enumeration> caseFrom(const std::array<Enumeration, count> &all, const Value &value)
{
    const auto found = std::ranges::find_if(
        all, [&](Enumeration candidate) { return rawValue(candidate) == value; });
    return found == all.end() ? std::nullopt : std::optional(*found);
}

} // namespace

QString rawValue(MonitorType type)
{
    return type == MonitorType::port ? u"port"_s : u"http"_s;
}

QString rawValue(HTTPMethod method)
{
    switch (method) {
    case HTTPMethod::GET:
        return u"GET"_s;
    case HTTPMethod::HEAD:
        return u"HEAD"_s;
    case HTTPMethod::POST:
        return u"POST"_s;
    }
    Q_UNREACHABLE();
}

Seconds rawValue(CheckInterval interval)
{
    switch (interval) {
    case CheckInterval::thirtySeconds:
        return Seconds(30);
    case CheckInterval::oneMinute:
        return Seconds(60);
    case CheckInterval::fiveMinutes:
        return Seconds(300);
    case CheckInterval::fifteenMinutes:
        return Seconds(900);
    case CheckInterval::thirtyMinutes:
        return Seconds(1800);
    case CheckInterval::oneHour:
        return Seconds(3600);
    }
    Q_UNREACHABLE();
}

std::optional<MonitorType> monitorTypeFrom(QStringView rawValue)
{
    return caseFrom(allMonitorTypes, rawValue);
}

std::optional<HTTPMethod> httpMethodFrom(QStringView rawValue)
{
    return caseFrom(allHTTPMethods, rawValue);
}

std::optional<CheckInterval> checkIntervalFrom(Seconds rawValue)
{
    return caseFrom(allCheckIntervals, rawValue);
}

QString Monitor::displayName() const
{
    return name.isEmpty() ? hostOf(url).value_or(url) : name;
}

size_t qHash(const Monitor &monitor, size_t seed)
{
    const auto &m = monitor;
    return qHashMulti(seed, m.id, m.name, m.url, int(m.method), m.interval.count(),
                      m.timeout.count(), m.isEnabled, m.notifyOnDown, m.notifyOnRecovery,
                      m.createdAt.time_since_epoch().count(), int(m.type), m.keyword.has_value(),
                      m.keyword.value_or(QString()), m.keywordShouldExist,
                      m.responseTimeThreshold.value_or(Milliseconds(-1)).count(),
                      m.port.value_or(-1), m.sslExpiryWarningDays);
}

} // namespace ostrel
