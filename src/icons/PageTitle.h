#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// The page's title: its Open Graph title, or else its title element, without blanks at the ends;
/// otherwise as found, with entities and inner white space. Nullopt if both are missing or blank.
/// Any thread.
[[nodiscard]] std::optional<QString> pageTitleIn(const QString &html);

} // namespace ostrel
