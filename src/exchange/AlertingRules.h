#pragma once

#include "ProbedMonitor.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>

namespace ostrel {

/// The labels by which the alerting rules find the series of @p probed.
[[nodiscard]] QJsonObject ruleLabels(const ProbedMonitor &probed);

/// Prometheus' rules file for @p monitors: alerts for what Ostrel notifies of.
[[nodiscard]] QByteArray alertingRules(const QList<ProbedMonitor> &monitors);

} // namespace ostrel
