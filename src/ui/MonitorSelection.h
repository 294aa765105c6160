#pragma once

#include "MonitorListModel.h"

#include <QObject>
#include <QPointer>
#include <QUuid>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

/// The monitor that the window shows. While none is selected, a change of the number of monitors
/// selects the first. Main thread.
class MonitorSelection : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ostrel::MonitorListModel *monitors READ monitors WRITE setMonitors NOTIFY
                   monitorsChanged REQUIRED FINAL)
    /// A QUuid; null if the dashboard is selected. May be the id of a removed monitor.
    Q_PROPERTY(QVariant monitorId READ monitorIdValue WRITE setMonitorIdValue NOTIFY changed FINAL)
    /// The selected monitor's row; -1 if none is selected, or it has been removed.
    Q_PROPERTY(int row READ row NOTIFY changed FINAL)
    Q_PROPERTY(bool showsMonitor READ showsMonitor NOTIFY changed FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] MonitorListModel *monitors() const { return m_monitors; }
    /// Not owned.
    void setMonitors(MonitorListModel *monitors);

    void setMonitorId(const QUuid &monitorId);
    [[nodiscard]] QVariant monitorIdValue() const { return m_monitorId; }
    void setMonitorIdValue(const QVariant &monitorId) { setMonitorId(monitorId.toUuid()); }
    [[nodiscard]] int row() const;
    [[nodiscard]] bool showsMonitor() const { return row() >= 0; }

    Q_INVOKABLE void clear();
    /// Clears the selection if it is @p monitorId.
    Q_INVOKABLE void leave(const QUuid &monitorId);
    /// Selects the monitor in @p row, or the nearest one; the dashboard if @p row is negative.
    Q_INVOKABLE void selectRow(int row);

Q_SIGNALS:
    void monitorsChanged();
    /// Another monitor is selected, or the selected one has another row.
    void changed();

private:
    void selectAutomatically();

    QPointer<MonitorListModel> m_monitors;
    QUuid m_monitorId;
};

} // namespace ostrel
