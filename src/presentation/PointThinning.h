#pragma once

#include <QPointF>

#include <span>
#include <vector>

namespace ostrel {

/// @p points, which are sorted by x, without those that can't be told apart: of more than two
/// within one section of @p width, counted from @p left, only the lowest and the highest stay. All
/// that stay keep their order and place, among them the first and the last point.
[[nodiscard]] std::vector<QPointF> thinnedPoints(std::span<const QPointF> points, double left,
                                                 double width);

} // namespace ostrel
