#pragma once

#include <QByteArray>

#include <optional>

namespace ostrel {

/// The same drawing as @p svg, made of shapes, gradients and plain style sheets alone, without
/// anything that leads out of the file. All other elements (pictures, text, scripts, animations,
/// uses, masks, filters) are left out, with all that is in them; so are links to other files.
/// Nullopt if it isn't one drawing of moderate size (256 KiB, 4 KiB of style sheets, 4096 drawn
/// elements, 32 levels of them, 64 attributes of an element, 64 namespaces at a time), if nothing
/// visible would be left, if a dash list holds a length, if matching its style sheets would take
/// long, or if it imports style sheets or declares entities or attributes. Always read as UTF-8.
/// Any thread; takes linear time.
[[nodiscard]] std::optional<QByteArray> safeSvg(const QByteArray &svg);

} // namespace ostrel
