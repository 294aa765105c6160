#pragma once

#include <QByteArray>

namespace ostrel {

class MonitorStore;

/// The present state of every monitor of @p store in the OpenMetrics text format, which ends with
/// "# EOF" and which readers of Prometheus' older text format understand, too. Only gauges, without
/// timestamps. What isn't known (a monitor that wasn't checked yet has no result, plain HTTP no
/// certificate) has no sample.
[[nodiscard]] QByteArray openMetrics(const MonitorStore &store);

} // namespace ostrel
