#pragma once

#include "Monitor.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace ostrel {

/// The stored form of a list of monitors: a JSON array of objects, indented, one key per line, in
/// the list's order. Optional keys are left out when absent, never null; UUIDs are upper case.
[[nodiscard]] QByteArray encodeMonitors(const QList<Monitor> &monitors);

/// The monitors that @p json holds. Keys may come in any order, unknown ones are passed over, the
/// keys that came later have their defaults ("type" http, "keywordShouldExist" true,
/// "sslExpiryWarningDays" 14); UUIDs may be lower case. Nothing if any record lacks a required key
/// or has a value of the wrong type: 80.5 is no integer, null no string.
[[nodiscard]] std::optional<QList<Monitor>> decodeMonitors(QByteArrayView json);

} // namespace ostrel
