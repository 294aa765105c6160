#include "CannedDetail.h"

#include "CannedMonitors.h"

namespace ostrel {

CannedDetail::CannedDetail(QObject *parent)
    : QObject(parent)
    , m_store(m_folder.path(), MonitorStore::Access::readOnly, cannedNow)
    , m_model(m_store, cannedNow)
{
}

QStringList CannedDetail::samples()
{
    return cannedMonitorSamples();
}

void CannedDetail::setSample(const QString &sample)
{
    m_sample = sample;
    const auto canned = cannedMonitor(sample);
    if (!canned)
        return;
    addTo(m_store, *canned);
    m_model.setMonitorId(canned->monitor.id);
}

} // namespace ostrel
