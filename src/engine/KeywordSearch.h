#pragma once

#include "IcuHandles.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace ostrel {

/// Whether @p text holds @p keyword, as a reader of the user's language would say: upper and lower
/// case are the same, and so are an accented letter and the same letter with a combining accent,
/// but not a letter with and without its accent. The keyword is a text, not a pattern. By the
/// Unicode Collation Algorithm (UTS #10, section 8), at the second level. Any thread.
[[nodiscard]] bool containsKeyword(const QString &text, const QString &keyword);

/// What containsKeyword compares with, in the user's locale; null where ICU's data can't be had.
[[nodiscard]] IcuCollator makeSearchCollator();

enum class BodyExtent {
    complete,
    truncated, ///< The end is missing, maybe in the middle of a character.
};

/// The text of a body that is UTF-8; nothing for any other.
[[nodiscard]] std::optional<QString> decodeBody(const QByteArray &body, BodyExtent extent);

} // namespace ostrel
