#pragma once

#include <QByteArray>

#include <optional>

namespace ostrel {

/// The same drawing as @p svg, made of shapes, gradients and plain style sheets alone, without
/// anything that leads out of the file. All other elements (pictures, text, scripts, animations,
/// uses, masks, filters) are left out, with all that is in them; so are links to other files.
/// Nothing where it isn't one drawing of moderate size (256 KiB, 4 KiB of style sheets, 4096
/// elements of those that are drawn, 32 levels of them, 64 attributes of an element, 64 namespaces
/// at a time), where nothing of it would be left to see, where a dash list holds a length, where
/// many conditions of a style sheet meet much to select from, and where it imports style sheets or
/// declares entities or attributes. Read as UTF-8, whatever it says. Any thread; takes linear time.
[[nodiscard]] std::optional<QByteArray> safeSvg(const QByteArray &svg);

} // namespace ostrel
