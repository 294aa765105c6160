#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// The web address that the clipboard's plain text @p text is, white space around it removed.
/// Nothing where it doesn't begin with "http://" or "https://" or names no host.
[[nodiscard]] std::optional<QString> clipboardSuggestion(const QString &text);

} // namespace ostrel
