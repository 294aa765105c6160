#include "CannedDetail.h"

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

/// A Friday, 15:42 UTC.
Timestamp cannedNow()
{
    return *parseTimestamp("2026-11-20T15:42:00Z");
}

/// A monitor as it is, with the checks it has had.
struct Canned
{
    Monitor monitor;
    std::vector<Check> checks = {}; ///< Oldest first.

    [[nodiscard]] Check &latest() { return checks.back(); }
};

Monitor documentation()
{
    return {
        .id = QUuid::createUuid(),
        .name = QStringLiteral("Documentation"),
        .url = QStringLiteral("https://docs.example.org"),
        .createdAt = cannedNow() - 24h,
    };
}

Monitor payments()
{
    Monitor monitor = documentation();
    monitor.name = QStringLiteral("Payments API");
    monitor.url = QStringLiteral("https://api.example.com/v2/health");
    return monitor;
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

/// Response times that wander about @p middle as a site's do.
double wander(int step, double middle)
{
    return middle * (1 + 0.2 * std::sin(step * 0.35) + 0.1 * std::sin(step * 1.7) +
                     0.07 * std::sin(step * std::numbers::pi));
}

Canned upEvery(Monitor monitor, std::chrono::minutes interval, int count, double middle = 190)
{
    const Timestamp newest = cannedNow() - 2min;
    Canned canned = {.monitor = std::move(monitor)};
    for (int step = count - 1; step >= 0; --step)
        canned.checks.push_back(
            upCheck(canned.monitor, newest - step * interval, wander(step, middle)));
    return canned;
}

void fail(Check &check, const char *error, std::optional<qint32> statusCode)
{
    check.isUp = false;
    check.statusCode = {};
    if (statusCode)
        check.statusCode = *statusCode;
    check.error = OptionalText(QString::fromLatin1(error));
}

Canned up()
{
    Canned canned = upEvery(documentation(), 15min, 200);
    canned.monitor.keyword = QStringLiteral("Guide");
    fail(canned.checks[46], "HTTP 503", 503);
    canned.latest().keywordFound = true;
    canned.latest().sslExpiresAt = cannedNow() + 61 * 24h + 1h;
    return canned;
}

Canned down()
{
    Canned canned = upEvery(payments(), 60min, 80, 347);
    canned.monitor.keyword = QStringLiteral("healthy");
    canned.monitor.responseTimeThreshold = 1000ms;
    const auto size = canned.checks.size();
    for (const std::size_t age : {1U, 2U, 3U})
        fail(canned.checks[size - age], "HTTP 503", 503);
    fail(canned.checks[size - 4], "Timeout was reached", {});
    fail(canned.checks[size - 8], "Keyword 'healthy' not found", 200);
    canned.latest().responseTime = 1532;
    canned.latest().sslExpiresAt = cannedNow() + 12 * 24h + 1h;
    return canned;
}

Canned paused()
{
    Canned canned = upEvery(documentation(), 15min, 96);
    canned.monitor.isEnabled = false;
    return canned;
}

Canned port()
{
    Monitor monitor = documentation();
    monitor.name = QStringLiteral("db.local:5432");
    monitor.url = QStringLiteral("db.local");
    monitor.type = MonitorType::port;
    monitor.port = 5432;
    Canned canned = upEvery(monitor, 15min, 96, 12);
    for (Check &check : canned.checks)
        check.statusCode = {};
    return canned;
}

Canned keywordIssue()
{
    Canned canned = up();
    canned.latest().keywordFound = false;
    return canned;
}

Canned slow()
{
    Canned canned = upEvery(payments(), 15min, 96, 1500);
    canned.monitor.responseTimeThreshold = 1000ms;
    return canned;
}

template<int days>
Canned certificate()
{
    Canned canned = upEvery(documentation(), 15min, 96);
    canned.latest().sslExpiresAt = cannedNow() + days * 24h;
    return canned;
}

template<int points>
Canned chart()
{
    Canned canned = upEvery(documentation(), std::chrono::minutes(points > 96 ? 0 : 15), points);
    if constexpr (points > 96) {
        for (int i = 0; i < points; ++i)
            canned.checks[std::size_t(i)].timestamp = cannedNow() - (points - 1 - i) * 43s;
    }
    return canned;
}

Canned noChart()
{
    Canned canned = upEvery(payments(), 15min, 3);
    for (Check &check : canned.checks)
        fail(check, "Connection refused", {});
    return canned;
}

Canned stale()
{
    Canned canned = upEvery(documentation(), 15min, 30);
    for (Check &check : canned.checks)
        check.timestamp -= 72h;
    return canned;
}

struct Recipe
{
    const char *sample;
    Canned (*make)();
};

constexpr std::array recipes = {
    Recipe{"up", up},
    Recipe{"down", down},
    Recipe{"paused", paused},
    Recipe{"pending", [] { return Canned{.monitor = documentation()}; }},
    Recipe{"port", port},
    Recipe{"keyword-issue", keywordIssue},
    Recipe{"slow", slow},
    Recipe{"certificate-7", certificate<7>},
    Recipe{"certificate-8", certificate<8>},
    Recipe{"certificate-30", certificate<30>},
    Recipe{"certificate-31", certificate<31>},
    Recipe{"chart-0", noChart},
    Recipe{"chart-1", chart<1>},
    Recipe{"chart-2", chart<2>},
    Recipe{"chart-40", chart<40>},
    Recipe{"chart-41", chart<41>},
    Recipe{"chart-2000", chart<2000>},
    Recipe{"strip-90", chart<90>},
    Recipe{"strip-91", chart<91>},
    Recipe{"stale", stale},
};

} // namespace

CannedDetail::CannedDetail(QObject *parent)
    : QObject(parent)
    , m_store(m_folder.path(), MonitorStore::Access::readOnly, cannedNow)
    , m_model(m_store, cannedNow)
{
}

QStringList CannedDetail::samples()
{
    QStringList samples;
    for (const Recipe &recipe : recipes)
        samples += QString::fromLatin1(recipe.sample);
    return samples;
}

void CannedDetail::setSample(const QString &sample)
{
    m_sample = sample;
    for (const Recipe &recipe : recipes) {
        if (sample != QLatin1String(recipe.sample))
            continue;
        const Canned canned = recipe.make();
        m_store.addMonitor(canned.monitor);
        for (const Check &check : canned.checks)
            m_store.addCheck(check);
        m_model.setMonitorId(canned.monitor.id);
    }
}

} // namespace ostrel
