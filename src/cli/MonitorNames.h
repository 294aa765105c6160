#pragma once

#include "Monitor.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <variant>

namespace ostrel {

// How commands name monitors.

/// The beginning of the id of @p monitor, as lists show it.
[[nodiscard]] QString shortId(const Monitor &monitor);
/// The name and the short id, on one line.
[[nodiscard]] QString nameAndId(const Monitor &monitor);
/// The address, and the port of a port monitor, on one line.
[[nodiscard]] QString targetText(const Monitor &monitor);

/// The monitors of @p monitors that @p names mean, each once, in the order of @p names; or a
/// sentence for users about the first name that means none or several.
///
/// A name is an id in either case; or else the beginning of an id, at least four digits, or the
/// name that lists show; or else that name without regard to case.
[[nodiscard]] std::variant<QList<Monitor>, QString> monitorsNamed(const QStringList &names,
                                                                  const QList<Monitor> &monitors);

} // namespace ostrel
