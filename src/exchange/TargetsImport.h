#pragma once

#include "ImportContent.h"

#include <QJsonArray>

namespace ostrel {

/// Whether @p array is meant as Prometheus' list of target groups.
[[nodiscard]] bool areTargets(const QJsonArray &array);

/// Reads groups of "targets", each an address as in a list, with "labels". The label "name" of a
/// group of one target names its monitor; all other labels are told to have no counterpart.
[[nodiscard]] ImportContent readTargets(const QJsonArray &groups, Timestamp now);

} // namespace ostrel
