#pragma once

#include "ImportContent.h"

#include <QJsonArray>
#include <QJsonObject>

namespace ostrel {

/// Reads what ostrel export wrote, with the history if that is there; see appendJsonExport().
[[nodiscard]] ImportContent readRecords(const QJsonObject &exported);

/// Reads the array of monitors.json.
[[nodiscard]] ImportContent readRecords(const QJsonArray &monitors);

} // namespace ostrel
