#pragma once

#include "Check.h"
#include "Monitor.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

#include <optional>
#include <span>
#include <vector>

namespace ostrel {

// The stored forms of the records as values of Qt's JSON classes, with the same members as in the
// files.

[[nodiscard]] QJsonObject monitorObject(const Monitor &monitor);
/// Nullopt if @p object isn't the stored form of a monitor.
[[nodiscard]] std::optional<Monitor> monitorFrom(const QJsonObject &object);

[[nodiscard]] QJsonObject checkObject(const Check &check);
[[nodiscard]] QJsonArray checkArray(std::span<const Check> checks);
/// The checks in @p array, as checks of @p monitorId, whatever they say. Nullopt if one of them
/// isn't the stored form of a check.
[[nodiscard]] std::optional<std::vector<Check>> checksFrom(const QJsonArray &array,
                                                           const QUuid &monitorId);

[[nodiscard]] QString idText(const QUuid &id);
/// Nullopt if @p value isn't the stored form of a UUID.
[[nodiscard]] std::optional<QUuid> idFrom(const QJsonValue &value);

} // namespace ostrel
