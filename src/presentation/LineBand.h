#pragma once

#include <QPointF>

#include <span>
#include <vector>

namespace ostrel {

/// The outline of a line of @p width through @p points, as a polygon: its upper edge from left to
/// right, then its lower edge back.
///
/// Use it for points that are so close together that the line overlaps itself: painting the outline
/// once is many times faster than stroking every segment, and looks the same. The points must be
/// sorted by x, and at least two of them must have different x.
[[nodiscard]] std::vector<QPointF> lineBand(std::span<const QPointF> points, double width);

} // namespace ostrel
