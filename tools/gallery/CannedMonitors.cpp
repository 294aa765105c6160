#include "CannedMonitors.h"

#include "MonitorStore.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

using namespace std::chrono_literals;

Monitor documentation()
{
    return {
        .id = QUuid::createUuid(),
        .name = u"Documentation"_s,
        .url = u"https://docs.example.org"_s,
        .createdAt = cannedNow() - 24h,
    };
}

Monitor payments()
{
    Monitor monitor = documentation();
    monitor.name = u"Payments API"_s;
    monitor.url = u"https://api.example.com/v2/health"_s;
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

/// Response times that vary around @p middle as a site's do: in slow waves, with noise.
double wander(int step, double middle)
{
    return middle * (1 + 0.12 * std::sin(step * 0.09 + 2) + 0.08 * std::sin(step * 0.41) +
                     0.09 * std::sin(step * step * 0.7));
}

CannedMonitor upEvery(Monitor monitor, std::chrono::minutes interval, int count,
                      double middle = 190)
{
    const Timestamp newest = cannedNow() - 2min;
    CannedMonitor canned = {.monitor = std::move(monitor)};
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

CannedMonitor up()
{
    CannedMonitor canned = upEvery(documentation(), 15min, 200);
    canned.monitor.keyword = u"Guide"_s;
    fail(canned.checks[46], "HTTP 503", 503);
    canned.latest().responseTime = 187;
    canned.latest().keywordFound = true;
    canned.latest().sslExpiresAt = cannedNow() + 61 * 24h + 1h;
    return canned;
}

CannedMonitor down()
{
    CannedMonitor canned = upEvery(payments(), 60min, 80, 347);
    canned.monitor.keyword = u"healthy"_s;
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

CannedMonitor paused()
{
    CannedMonitor canned = upEvery(documentation(), 15min, 96);
    canned.monitor.isEnabled = false;
    return canned;
}

CannedMonitor port()
{
    Monitor monitor = documentation();
    monitor.name = u"db.local:5432"_s;
    monitor.url = u"db.local"_s;
    monitor.type = MonitorType::port;
    monitor.port = 5432;
    CannedMonitor canned = upEvery(monitor, 15min, 96, 12);
    for (Check &check : canned.checks)
        check.statusCode = {};
    return canned;
}

CannedMonitor keywordIssue()
{
    CannedMonitor canned = up();
    canned.latest().keywordFound = false;
    return canned;
}

CannedMonitor slow()
{
    CannedMonitor canned = upEvery(payments(), 15min, 96, 1500);
    canned.monitor.responseTimeThreshold = 1000ms;
    return canned;
}

template<int days>
CannedMonitor certificate()
{
    CannedMonitor canned = upEvery(documentation(), 15min, 96);
    canned.latest().sslExpiresAt = cannedNow() + days * 24h;
    return canned;
}

template<int points>
CannedMonitor chart()
{
    CannedMonitor canned =
        upEvery(documentation(), std::chrono::minutes(points > 96 ? 0 : 15), points);
    if constexpr (points > 96) {
        for (int i = 0; i < points; ++i)
            canned.checks[std::size_t(i)].timestamp = cannedNow() - (points - 1 - i) * 43s;
    }
    return canned;
}

/// A strip in which every seventeenth check failed.
template<int checks>
CannedMonitor strip()
{
    CannedMonitor canned = upEvery(documentation(), 5min, checks);
    for (std::size_t i = 16; i < canned.checks.size(); i += 17)
        fail(canned.checks[i], "HTTP 503", 503);
    return canned;
}

CannedMonitor noChart()
{
    CannedMonitor canned = upEvery(payments(), 15min, 3);
    for (Check &check : canned.checks)
        fail(check, "Connection refused", {});
    return canned;
}

CannedMonitor stale()
{
    CannedMonitor canned = upEvery(documentation(), 15min, 30);
    for (Check &check : canned.checks)
        check.timestamp -= 72h;
    return canned;
}

Monitor site(const char *name, const char *url)
{
    Monitor monitor = documentation();
    monitor.name = QString::fromUtf8(name);
    monitor.url = QString::fromLatin1(url);
    return monitor;
}

/// A site that answered in @p middle milliseconds, and failed once in @p count checks of the day.
CannedMonitor failedOnce(Monitor monitor, int count, double middle)
{
    CannedMonitor canned =
        upEvery(std::move(monitor), std::chrono::minutes(24 * 60 / count), count, middle);
    fail(canned.checks[static_cast<std::size_t>(count / 2)], "HTTP 503", 503);
    canned.latest().responseTime = middle;
    return canned;
}

CannedMonitor fieldNotes()
{
    return failedOnce(site("Field Notes", "https://notes.example.org"), 720, 142);
}

CannedMonitor bakery()
{
    return failedOnce(site("Corner Bakery \u2014 Order online", "https://bakery.example/order/"),
                      72, 640);
}

CannedMonitor staging()
{
    CannedMonitor canned = failedOnce(site("Staging", "https://staging.example.org"), 35, 233);
    canned.monitor.isEnabled = false;
    return canned;
}

CannedMonitor neverChecked()
{
    CannedMonitor canned = port();
    canned.checks.clear();
    return canned;
}

CannedMonitor longest()
{
    CannedMonitor canned =
        upEvery(site("The Municipal Library of Upper and Lower Wiesenthal \u2014 Catalogue, "
                     "Opening Hours, Events",
                     "https://catalogue-library.upper-and-lower-wiesenthal.example/search/"
                     "advanced?branch=all&sort=newest"),
                60min, 80, 10400);
    canned.monitor.keyword = u"Opening Hours"_s;
    canned.monitor.responseTimeThreshold = 1000ms;
    fail(canned.checks[70],
         "SSL: no alternative certificate subject name matches target host name "
         "'catalogue-library.upper-and-lower-wiesenthal.example'",
         {});
    canned.latest().responseTime = 12345;
    canned.latest().sslExpiresAt = cannedNow() + 3650 * 24h + 1h;
    return canned;
}

struct MonitorRecipe
{
    const char *sample;
    CannedMonitor (*make)();
};

constexpr std::array monitorRecipes = {
    MonitorRecipe{"up", up},
    MonitorRecipe{"down", down},
    MonitorRecipe{"paused", paused},
    MonitorRecipe{"pending", [] { return CannedMonitor{.monitor = documentation()}; }},
    MonitorRecipe{"port", port},
    MonitorRecipe{"keyword-ok", up},
    MonitorRecipe{"keyword-issue", keywordIssue},
    MonitorRecipe{"slow", slow},
    MonitorRecipe{"certificate-7", certificate<7>},
    MonitorRecipe{"certificate-8", certificate<8>},
    MonitorRecipe{"certificate-30", certificate<30>},
    MonitorRecipe{"certificate-31", certificate<31>},
    MonitorRecipe{"chart-0", noChart},
    MonitorRecipe{"chart-1", chart<1>},
    MonitorRecipe{"chart-2", chart<2>},
    MonitorRecipe{"chart-40", chart<40>},
    MonitorRecipe{"chart-41", chart<41>},
    MonitorRecipe{"chart-2000", chart<2000>},
    MonitorRecipe{"strip-0", [] { return CannedMonitor{.monitor = documentation()}; }},
    MonitorRecipe{"strip-1", strip<1>},
    MonitorRecipe{"strip-90", strip<90>},
    MonitorRecipe{"strip-91", strip<91>},
    MonitorRecipe{"strip-180", strip<180>},
    MonitorRecipe{"strip-270", strip<270>},
    MonitorRecipe{"stale", stale},
    MonitorRecipe{"long", longest},
};

} // namespace

Timestamp cannedNow()
{
    return *parseTimestamp("2026-11-20T15:42:00Z");
}

QStringList cannedMonitorSamples()
{
    QStringList samples;
    for (const MonitorRecipe &recipe : monitorRecipes)
        samples += QString::fromLatin1(recipe.sample);
    return samples;
}

std::optional<CannedMonitor> cannedMonitor(const QString &sample)
{
    for (const MonitorRecipe &recipe : monitorRecipes) {
        if (sample == QLatin1String(recipe.sample))
            return recipe.make();
    }
    return {};
}

std::vector<CannedMonitor> cannedMonitors()
{
    return {fieldNotes(), down(), bakery(), up(), staging(), neverChecked()};
}

std::vector<CannedMonitor> cannedMonitorsUp()
{
    return {fieldNotes(), upEvery(payments(), 15min, 96, 318), bakery(), up(), port()};
}

std::vector<CannedMonitor> manyCannedMonitors()
{
    std::vector<CannedMonitor> many;
    for (int round = 0; round < 6; ++round) {
        for (CannedMonitor &canned : cannedMonitors())
            many.push_back(std::move(canned));
    }
    return many;
}

std::vector<CannedMonitor> longCannedMonitors()
{
    std::vector<CannedMonitor> monitors = {longest()};
    for (CannedMonitor &canned : cannedMonitors())
        monitors.push_back(std::move(canned));
    return monitors;
}

void addTo(MonitorStore &store, const CannedMonitor &canned)
{
    store.addMonitor(canned.monitor);
    for (const Check &check : canned.checks)
        store.addCheck(check);
}

} // namespace ostrel
