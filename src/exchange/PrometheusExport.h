#pragma once

#include "Monitor.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

namespace ostrel {

/// A configuration with which Prometheus and its blackbox exporter watch what Ostrel watches.
struct PrometheusConfiguration
{
    QMap<QString, QByteArray> files; ///< By their paths below the configuration's folder.
    /// What has no counterpart, a line each, with the monitor's name.
    QStringList notes;
};

/// The configuration for @p monitors: blackbox.yml, prometheus.yml, ostrel.rules.yml, a file of
/// targets for each pair of an interval and a time-out, and README.md. The exporter is expected at
/// 127.0.0.1:9115.
[[nodiscard]] PrometheusConfiguration prometheusConfiguration(const QList<Monitor> &monitors);

} // namespace ostrel
