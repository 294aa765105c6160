#pragma once

#include <QString>

namespace ostrel {

/// The name by which the desktop knows the program: that of its desktop file, of its autostart
/// entry, of its icon and of its windows.
[[nodiscard]] QString applicationId();

} // namespace ostrel
