#include "MonitorDetailModel.h"

#include "MonitorStore.h"

#include <utility>

namespace ostrel {

MonitorDetailModel::MonitorDetailModel(const MonitorStore &store, WallClock now,
                                       TimeZoneSource timeZone, const QLocale &locale,
                                       QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_now(std::move(now))
    , m_timeZone(std::move(timeZone))
    , m_clock{.timeZone = m_timeZone(), .locale = locale}
    , m_recentChecks(store, m_clock)
{
    m_timer.setInterval(refreshInterval);
    connect(&m_timer, &QTimer::timeout, this, &MonitorDetailModel::refresh);
    connect(&store, &MonitorStore::monitorsChanged, this, &MonitorDetailModel::refresh);
    connect(&store, &MonitorStore::checksChanged, this, [this](const QUuid &monitorId) {
        if (monitorId == m_monitorId)
            refresh();
    });
}

void MonitorDetailModel::setMonitorId(const QUuid &monitorId)
{
    if (m_monitorId == monitorId)
        return;
    m_monitorId = monitorId;
    m_recentChecks.setMonitorId(monitorId);
    refresh();
    Q_EMIT monitorIdChanged();
    Q_EMIT isCheckingChanged();
}

void MonitorDetailModel::setChecking(const QUuid &monitorId, bool isChecking)
{
    if (isChecking)
        m_checking.insert(monitorId);
    else
        m_checking.remove(monitorId);
    Q_EMIT isCheckingChanged();
}

void MonitorDetailModel::setShown(bool isShown)
{
    if (isShown == m_timer.isActive())
        return;
    if (isShown) {
        refresh();
        m_timer.start();
    } else {
        m_timer.stop();
    }
    Q_EMIT isShownChanged();
}

void MonitorDetailModel::setCountsToTwelve(std::optional<bool> countsToTwelve)
{
    ClockStyle clock = m_clock;
    clock.countsToTwelve = countsToTwelve;
    setClock(clock);
}

void MonitorDetailModel::setClock(const ClockStyle &clock)
{
    if (m_clock == clock)
        return;
    m_clock = clock;
    m_recentChecks.setClock(clock);
    Q_EMIT clockChanged();
}

void MonitorDetailModel::refresh()
{
    ClockStyle clock = m_clock;
    clock.timeZone = m_timeZone();
    setClock(clock);
    const auto monitor = m_store.monitor(m_monitorId);
    const Viewpoint viewpoint = {.now = m_now(), .timeZone = m_clock.timeZone};
    MonitorDetail detail = monitor ? monitorDetail(m_store, *monitor, viewpoint) : MonitorDetail();
    if (m_detail == detail)
        return;
    m_detail = std::move(detail);
    Q_EMIT detailChanged();
}

} // namespace ostrel
