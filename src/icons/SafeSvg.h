#pragma once

#include <QByteArray>

#include <optional>

namespace ostrel {

/// The same drawing as @p svg, made of shapes, gradients and plain style sheets alone, without
/// anything that leads out of the file. Nothing where it isn't one drawing of moderate size (256
/// KiB, 4 KiB of style sheets, 4096 elements, 32 levels, 64 attributes of an element), where it
/// holds what can't be left out without changing it (pictures, text, scripts, animations, uses,
/// filters), where many conditions of a style sheet meet much to select from, and where it declares
/// entities or attributes. Read as UTF-8, whatever it says. Any thread; takes linear time.
[[nodiscard]] std::optional<QByteArray> safeSvg(const QByteArray &svg);

} // namespace ostrel
