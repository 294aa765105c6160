#pragma once

#include <QString>
#include <QUrl>

namespace ostrel {

// The product's contact address, and the examples in its forms.

/// Opens a new message to Ostrel's support.
[[nodiscard]] QUrl supportAddress();

[[nodiscard]] QString exampleWebsite();
[[nodiscard]] QString exampleDatabaseHost();

} // namespace ostrel
