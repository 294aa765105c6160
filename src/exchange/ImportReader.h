#pragma once

#include "ImportContent.h"
#include "Timestamp.h"

#include <QByteArray>

namespace ostrel {

/// Reads a file that ostrel export wrote, a file of monitors (monitors.json), a file of Prometheus'
/// targets (JSON), or a list of addresses; see readRecords(), readTargets() and readAddresses().
/// Monitors that the file doesn't date are created at @p now.
[[nodiscard]] ImportContent readImport(const QByteArray &text, Timestamp now);

} // namespace ostrel
