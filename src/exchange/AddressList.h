#pragma once

#include "ImportContent.h"

#include <QString>

namespace ostrel {

/// The new monitor of @p address, which is completed as in the form: a web address, "host:port", or
/// "[IPv6 address]:port". Nullopt if it can't be checked.
[[nodiscard]] std::optional<Monitor> monitorOfAddress(const QString &address, Timestamp now);

/// Reads an address from each line of @p text; text behind a tab is the monitor's name. Passes over
/// empty lines and lines that begin with "#".
[[nodiscard]] ImportContent readAddresses(const QString &text, Timestamp now);

} // namespace ostrel
