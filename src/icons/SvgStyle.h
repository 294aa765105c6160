#pragma once

#include <QString>

#include <optional>

namespace ostrel {

/// The safe value of the attribute @p name of a drawing's element: @p value without comments, and
/// with a solid line for a dash list without a length. Nullopt if it could do harm: if a dash list
/// holds a length, because dashes can be so short that a line has millions of them; if it imports;
/// or if it hides either behind escapes. Takes linear time.
[[nodiscard]] std::optional<QString> harmlessAttribute(const QString &name, const QString &value);

/// The same for a whole style sheet.
[[nodiscard]] std::optional<QString> harmlessStyle(const QString &style);

} // namespace ostrel
