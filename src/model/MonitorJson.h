#pragma once

#include "Monitor.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <optional>

namespace ostrel {

/// The stored form of a list of monitors: a JSON array of objects, indented, one key per line, in
/// the list's order. Optional keys are left out when absent, never null; UUIDs are upper case.
/// Values that JSON can't represent are replaced: an interval or time-out that isn't finite by a
/// new monitor's, such a threshold by none, an unpaired surrogate by a replacement character.
[[nodiscard]] QByteArray encodeMonitors(const QList<Monitor> &monitors);

/// Decodes the monitors in @p json. Keys may be in any order, unknown ones are ignored, the last of
/// duplicates counts; UUIDs may be lower case. Keys added in later versions have defaults ("type"
/// http, "keywordShouldExist" true, "sslExpiryWarningDays" 14); a null means that such a key is
/// absent. Nullopt if any record lacks a required key or has a value of the wrong type: 80.5 is no
/// integer, null no required string.
[[nodiscard]] std::optional<QList<Monitor>> decodeMonitors(QByteArrayView json);

} // namespace ostrel
