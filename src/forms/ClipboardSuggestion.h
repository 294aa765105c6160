#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// The web address in the clipboard's plain text @p text, without surrounding white space. Nullopt
/// if it doesn't begin with "http://" or "https://" or has no host.
[[nodiscard]] std::optional<QString> clipboardSuggestion(const QString &text);

} // namespace ostrel
