#pragma once

#include "Invocation.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace ostrel {

/// @p monitors in their order: a human-readable line each, or their stored form, or a name each.
/// UTF-8, with a newline at the end.
[[nodiscard]] QByteArray describeMonitors(const QList<Monitor> &monitors, ListFormat format);

/// describeMonitors() of the folder, which is only read; nullopt if the monitors can't be read. If
/// the folder or the file doesn't exist, there are no monitors.
[[nodiscard]] std::optional<QByteArray> readList(const ListInvocation &invocation);

} // namespace ostrel
