#include "DashboardModel.h"

#include "MonitorStore.h"

namespace ostrel {

DashboardModel::DashboardModel(const MonitorStore &store, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_banner(statusBanner(store))
    , m_isEmpty(store.monitors().isEmpty())
{
    connect(&store, &MonitorStore::monitorsChanged, this, &DashboardModel::update);
    connect(&store, &MonitorStore::checksChanged, this, &DashboardModel::update);
}

void DashboardModel::update()
{
    const StatusBanner banner = statusBanner(m_store);
    const bool isEmpty = m_store.monitors().isEmpty();
    if (banner == m_banner && isEmpty == m_isEmpty)
        return;
    m_banner = banner;
    m_isEmpty = isEmpty;
    Q_EMIT changed();
}

} // namespace ostrel
