#pragma once

#include <QString>

namespace ostrel {

/// @p foreign, a text from a site, a file or the clipboard, as one line that can be shown to users.
///
/// Control characters and line and paragraph separators become blanks, bidirectional controls are
/// removed, and a lone surrogate becomes U+FFFD. A text longer than 200 characters is cut there and
/// ends with "…"; so does one that has nothing left to show. A character is a code point with the
/// marks and invisible code points that follow it, of which at most eight in a row are kept: no
/// script and no emoji uses more, but more would take layout seconds. Takes constant time, however
/// long the text.
[[nodiscard]] QString oneLine(const QString &foreign);

} // namespace ostrel
