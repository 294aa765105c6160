#pragma once

#include "Monitor.h"

#include <QStringList>

#include <chrono>
#include <optional>

namespace ostrel {

/// What the blackbox exporter's configuration says about a probe: equal ones are one module.
struct ProbeModule
{
    MonitorType type = MonitorType::http;
    HTTPMethod method = HTTPMethod::GET;
    QString keyword = {}; ///< Empty if none is searched for.
    bool keywordShouldExist = true;
    std::chrono::milliseconds timeout{0};

    bool operator==(const ProbeModule &) const = default;
};

/// A monitor as Prometheus and the blackbox exporter watch it.
struct ProbedMonitor
{
    Monitor monitor;
    QString target; ///< An address in ASCII, or "host:port".
    ProbeModule module;
    std::chrono::milliseconds interval{0};
    std::chrono::milliseconds scrapeTimeout{0}; ///< At most the interval, as Prometheus demands.
};

struct ProbeTranslation
{
    std::optional<ProbedMonitor> probed; ///< Nullopt if the monitor can't be probed.
    /// What has no counterpart, one sentence each, without the monitor's name.
    QStringList notes;
};

[[nodiscard]] ProbeTranslation probeTranslation(const Monitor &monitor);

} // namespace ostrel
