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
        connect(monitors, &QAbstractItemModel::dataChanged, this, &MonitorSelection::noteEdits);
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

QString MonitorSelection::name() const
{
    return text(MonitorListModel::nameRole);
}

QString MonitorSelection::address() const
{
    return text(MonitorListModel::addressRole);
}

QString MonitorSelection::spokenText() const
{
    return text(MonitorListModel::spokenTextRole);
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
        Q_EMIT changed(); // Its row may be another.
}

void MonitorSelection::noteEdits(const QModelIndex &first, const QModelIndex &last)
{
    const int selected = row();
    if (first.row() <= selected && selected <= last.row())
        Q_EMIT changed();
}

QString MonitorSelection::text(MonitorListModel::Role role) const
{
    const int selected = row();
    return selected < 0 ? QString()
                        : m_monitors->data(m_monitors->index(selected), role).toString();
}

} // namespace ostrel
