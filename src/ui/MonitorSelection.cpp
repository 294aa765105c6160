#include "MonitorSelection.h"

#include <algorithm>

namespace ostrel {

void MonitorSelection::setMonitors(MonitorListModel *monitors)
{
    if (m_monitors == monitors)
        return;
    if (m_monitors)
        m_monitors->disconnect(this);
    m_monitors = monitors;
    if (monitors) {
        connect(monitors, &QAbstractItemModel::rowsInserted, this,
                &MonitorSelection::selectAutomatically);
        connect(monitors, &QAbstractItemModel::rowsRemoved, this,
                &MonitorSelection::selectAutomatically);
    }
    Q_EMIT monitorsChanged();
    Q_EMIT changed();
}

void MonitorSelection::setMonitorId(const QUuid &monitorId)
{
    if (m_monitorId == monitorId)
        return;
    m_monitorId = monitorId;
    Q_EMIT changed();
}

int MonitorSelection::row() const
{
    return m_monitors && !m_monitorId.isNull() ? m_monitors->rowOf(m_monitorId) : -1;
}

void MonitorSelection::clear()
{
    setMonitorId({});
}

void MonitorSelection::leave(const QUuid &monitorId)
{
    if (m_monitorId == monitorId)
        clear();
}

void MonitorSelection::selectRow(int row)
{
    if (m_monitors)
        setMonitorId(m_monitors->monitorIdAt(std::min(row, m_monitors->rowCount() - 1)));
}

void MonitorSelection::selectAutomatically()
{
    if (m_monitorId.isNull())
        selectRow(0);
    else
        Q_EMIT changed(); // Its row may have changed.
}

} // namespace ostrel
