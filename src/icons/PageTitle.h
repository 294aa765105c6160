#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// What the page calls itself: its Open Graph title, or else its title element, without blanks at
/// the ends; otherwise as found, with entities and inner white space. Nothing where both are
/// missing or blank. Any thread.
[[nodiscard]] std::optional<QString> pageTitleIn(const QString &html);

} // namespace ostrel
