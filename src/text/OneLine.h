#pragma once

#include <QString>

namespace ostrel {

/// @p foreign, which a site, a file or the clipboard gave us, as one line that people can be shown.
///
/// Control characters and the separators of lines and paragraphs become blanks, the controls of
/// bidirectional text are left out, and half a surrogate pair becomes U+FFFD. What is longer than
/// 200 characters is cut there and ends with "…"; so does what has nothing left to show. A
/// character is a code point with the marks and invisible code points that follow it, of which no
/// more than eight in a row are kept: more of them stand in no script and no emoji, but take a
/// layout seconds. Takes the same time for every text, however long.
[[nodiscard]] QString oneLine(const QString &foreign);

} // namespace ostrel
