#include "LineBand.h"

#include <algorithm>
#include <cmath>

namespace ostrel {

namespace {

using Iterator = std::span<const QPointF>::iterator;

struct Range
{
    double lowest;
    double highest;

    void include(double y)
    {
        lowest = std::min(lowest, y);
        highest = std::max(highest, y);
    }
};

/// The ordinate, at @p x, of the straight line to @p next from the point before it.
double ordinateAt(std::span<const QPointF> points, Iterator next, double x)
{
    if (next == points.begin())
        return next->y();
    const QPointF before = *std::prev(next);
    if (next == points.end())
        return before.y();
    return std::lerp(before.y(), next->y(), (x - before.x()) / (next->x() - before.x()));
}

/// The range of the line's ordinates between @p left and @p right.
Range rangeBetween(std::span<const QPointF> points, double left, double right)
{
    const auto begin = std::ranges::lower_bound(points, left, {}, &QPointF::x);
    const auto end = std::find_if(begin, points.end(),
                                  [right](const QPointF &point) { return point.x() > right; });
    const double first = ordinateAt(points, begin, left);
    Range range{first, first};
    range.include(ordinateAt(points, end, right));
    for (auto point = begin; point != end; ++point)
        range.include(point->y());
    return range;
}

} // namespace

std::vector<QPointF> lineBand(std::span<const QPointF> points, double width)
{
    const double half = width / 2;
    const double left = points.front().x();
    const double length = points.back().x() - left;
    const auto columns = static_cast<std::size_t>(std::ceil(length / half));

    std::vector<QPointF> outline(2 * (columns + 1));
    for (std::size_t i = 0; i <= columns; ++i) {
        const double x = left + std::min(length, static_cast<double>(i) * half);
        const Range range = rangeBetween(points, x - half, x + half);
        outline[i] = {x, range.lowest - half};
        outline[outline.size() - 1 - i] = {x, range.highest + half};
    }
    return outline;
}

} // namespace ostrel
