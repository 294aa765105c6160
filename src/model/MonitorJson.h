#pragma once

#include "Monitor.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <optional>

namespace ostrel {

/// The stored form of a list of monitors: a JSON array of objects, indented, one key per line, in
/// the list's order. Optional keys are left out when absent, never null; UUIDs are upper case. What
/// JSON can't hold is replaced: an interval or time-out that is no finite number by a new
/// monitor's, such a threshold by none, an unpaired surrogate by a replacement character.
[[nodiscard]] QByteArray encodeMonitors(const QList<Monitor> &monitors);

/// The monitors that @p json holds. Keys may come in any order, unknown ones are passed over, the
/// keys that came later have their defaults ("type" http, "keywordShouldExist" true,
/// "sslExpiryWarningDays" 14), of one that comes twice the last counts; UUIDs may be lower case. A
/// null stands for that such a later key isn't there. Nothing if any record lacks a required key or
/// has a value of the wrong type: 80.5 is no integer, null no required string.
[[nodiscard]] std::optional<QList<Monitor>> decodeMonitors(QByteArrayView json);

} // namespace ostrel
