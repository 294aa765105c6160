#pragma once

#include <QString>

namespace ostrel {

/// Whether the text of @p host, a name or an address without brackets, denotes this computer:
/// "localhost", a name below it, 127.0.0.0/8 or ::1.
[[nodiscard]] bool isLoopbackHost(const QString &host);

} // namespace ostrel
