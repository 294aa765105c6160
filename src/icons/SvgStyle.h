#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// What the attribute @p name of a drawing's element, of value @p value, may say: the same, without
/// comments, and with plain lines where a dash list holds no length. Nothing where it could do
/// harm: where a dash list holds a length, for dashes can be made so short that a line has millions
/// of them; where it imports; and where it hides either behind escapes. Takes linear time.
[[nodiscard]] std::optional<QString> harmlessAttribute(const QString &name, const QString &value);

/// The same for a whole style sheet.
[[nodiscard]] std::optional<QString> harmlessStyle(const QString &style);

} // namespace ostrel
