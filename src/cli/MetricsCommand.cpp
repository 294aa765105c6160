#include "MetricsCommand.h"

#include "MonitorStore.h"
#include "OpenMetrics.h"

namespace ostrel {

std::optional<QByteArray> readMetrics(const MetricsInvocation &invocation)
{
    StoredRecords records = StoredRecords::read(invocation.dataDir);
    if (records.areMonitorsUnreadable)
        return std::nullopt;
    const MonitorStore store(invocation.dataDir, std::move(records),
                             {.access = MonitorStore::Access::readOnly});
    return openMetrics(store);
}

} // namespace ostrel
