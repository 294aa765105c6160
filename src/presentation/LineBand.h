#pragma once

#include <QPointF>

#include <span>
#include <vector>

namespace ostrel {

/// The outline of a line of @p width through @p points, as a polygon: its upper edge from left to
/// right, then its lower edge back.
///
/// For points that are so close together that the line covers itself: painting the outline once is
/// many times faster than stroking every segment, and looks the same. The points are sorted by x;
/// at least two of them differ in it.
[[nodiscard]] std::vector<QPointF> lineBand(std::span<const QPointF> points, double width);

} // namespace ostrel
