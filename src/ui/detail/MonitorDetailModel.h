#pragma once

#include "MonitorDetail.h"
#include "RecentChecksModel.h"

#include <QObject>
#include <QSet>
#include <QTimer>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace ostrel {

class MonitorStore;

/// The detail page of one monitor: its values and its recent checks. Recomputed when the store
/// reports a change, and, while the page is shown, as time passes. Main thread.
class MonitorDetailModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(QUuid monitorId READ monitorId WRITE setMonitorId NOTIFY monitorIdChanged)
    /// Whether the page is visible. Only then it is refreshed as time passes.
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged)
    /// Whether a check of the monitor that the user has requested is running.
    Q_PROPERTY(bool isChecking READ isChecking NOTIFY isCheckingChanged)
    Q_PROPERTY(ostrel::MonitorDetail detail READ detail NOTIFY detailChanged)
    /// That of all times on the page.
    Q_PROPERTY(ostrel::ClockStyle clock READ clock NOTIFY clockChanged)
    Q_PROPERTY(ostrel::RecentChecksModel *recentChecks READ recentChecks CONSTANT)

public:
    /// How often the page is refreshed as time passes.
    static constexpr std::chrono::milliseconds refreshInterval{1000};

    using TimeZoneSource = std::function<QTimeZone()>;

    /// @p store must outlive the model. The page follows the time @p now and the zone that @p
    /// timeZone reports; clock times are in the format of @p locale.
    explicit MonitorDetailModel(const MonitorStore &store, WallClock now = systemNow,
                                TimeZoneSource timeZone = QTimeZone::systemTimeZone,
                                const QLocale &locale = QLocale(), QObject *parent = nullptr);

    [[nodiscard]] QUuid monitorId() const { return m_monitorId; }
    /// A null or unknown id gives an empty page.
    void setMonitorId(const QUuid &monitorId);
    [[nodiscard]] bool isShown() const { return m_timer.isActive(); }
    void setShown(bool isShown);
    [[nodiscard]] bool isChecking() const { return m_checking.contains(m_monitorId); }
    /// Notes that a check that the user has requested, of any monitor, has begun or ended.
    void setChecking(const QUuid &monitorId, bool isChecking);
    [[nodiscard]] const MonitorDetail &detail() const { return m_detail; }
    [[nodiscard]] const ClockStyle &clock() const { return m_clock; }
    /// Whether hours count to twelve; absent if as usual in the locale.
    void setCountsToTwelve(std::optional<bool> countsToTwelve);
    [[nodiscard]] RecentChecksModel *recentChecks() { return &m_recentChecks; }

    /// Updates what depends on the current time.
    void refresh();

Q_SIGNALS:
    void monitorIdChanged();
    void isShownChanged();
    void isCheckingChanged();
    void detailChanged();
    void clockChanged();

private:
    void setClock(const ClockStyle &clock);

    const MonitorStore &m_store;
    WallClock m_now;
    TimeZoneSource m_timeZone;
    ClockStyle m_clock;
    QUuid m_monitorId;
    QSet<QUuid> m_checking;
    MonitorDetail m_detail;
    RecentChecksModel m_recentChecks;
    QTimer m_timer;
};

} // namespace ostrel
