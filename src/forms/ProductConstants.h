#pragma once

#include <QString>
#include <QUrl>

namespace ostrel {

// What says who stands behind this product, and the examples that its forms show.

/// Opens a new message to the people who help with Ostrel.
[[nodiscard]] QUrl supportAddress();

[[nodiscard]] QString exampleWebsite();
[[nodiscard]] QString exampleDatabaseHost();

} // namespace ostrel
