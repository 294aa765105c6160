#pragma once

#include <QByteArray>

#include <optional>

namespace ostrel {

/// The same drawing as @p svg, made only of shapes, gradients and plain style sheets, without
/// references out of the file. Nullopt if it isn't one drawing of moderate size (256 KiB, 4 KiB of
/// style sheets, 4096 elements, 32 levels, 64 attributes of an element), if it has parts that can't
/// be removed without changing it (pictures, text, scripts, animations, uses, filters), if the
/// conditions of its style sheets take too much work to match, or if it declares entities or
/// attributes. Read as UTF-8, whatever it declares. Any thread; takes linear time.
[[nodiscard]] std::optional<QByteArray> safeSvg(const QByteArray &svg);

} // namespace ostrel
