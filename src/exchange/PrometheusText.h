#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>

// How Prometheus and its exporters spell values in their files.

namespace ostrel {

/// "30s" for whole seconds, otherwise "1500ms".
[[nodiscard]] QByteArray durationText(std::chrono::milliseconds duration);

/// @p text as a double-quoted YAML scalar in UTF-8. Whatever YAML doesn't hold to be printable is
/// escaped; an unpaired surrogate becomes a replacement character.
[[nodiscard]] QByteArray yamlText(const QString &text);

/// A regular expression (RE2) for @p text itself.
[[nodiscard]] QString literalPattern(const QString &text);

} // namespace ostrel
