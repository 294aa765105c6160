#pragma once

#include <QString>

namespace ostrel {

/// Whether @p host, a name or an address without brackets, is this computer by its very text:
/// "localhost", a name below it, 127.0.0.0/8 or ::1.
[[nodiscard]] bool isLoopbackHost(const QString &host);

} // namespace ostrel
