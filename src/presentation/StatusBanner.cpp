#include "StatusBanner.h"

#include "MonitorStore.h"
#include "StatusLabel.h"
#include "ToneRules.h"

#include <QCoreApplication>

#include <algorithm>

namespace ostrel {

namespace {

struct BannerTexts
{
    Q_DECLARE_TR_FUNCTIONS(StatusBanner)
};

QString headline(MonitorStatus overallStatus)
{
    switch (overallStatus) {
    case MonitorStatus::up:
        return BannerTexts::tr("All Systems Operational");
    case MonitorStatus::down:
        return BannerTexts::tr("Issues Detected");
    case MonitorStatus::paused:
    case MonitorStatus::pending:
        return BannerTexts::tr("Checking...");
    }
    Q_UNREACHABLE();
}

QString countLine(const MonitorStore &store)
{
    const auto &monitors = store.monitors();
    const auto up = std::ranges::count_if(monitors, [&](const Monitor &monitor) {
        return store.status(monitor) == MonitorStatus::up;
    });
    return BannerTexts::tr("%1 of %2 monitors up").arg(up).arg(monitors.size());
}

} // namespace

StatusBanner statusBanner(const MonitorStore &store)
{
    const MonitorStatus overall = store.overallStatus();
    return {
        .symbol = statusSymbol(overall),
        .headline = headline(overall),
        .countLine = countLine(store),
        .tone = statusTone(overall),
    };
}

} // namespace ostrel
