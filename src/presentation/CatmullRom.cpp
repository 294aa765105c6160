#include "CatmullRom.h"

#include <cmath>

namespace ostrel {

namespace {

// Points closer than this coincide: dividing by such a distance only amplifies noise.
constexpr double minKnotDistance = 1e-12;

/// The distance between the knots of @p from and @p to.
double knotDistance(QPointF from, QPointF to, double alpha)
{
    return std::pow(std::hypot(to.x() - from.x(), to.y() - from.y()), alpha);
}

/// The control point beside @p near, on the side of @p far; @p beyond is the neighbour on the other
/// side; @p inner is the knots' distance between near and far, @p outer that between near and
/// beyond.
QPointF controlPoint(QPointF beyond, QPointF near, QPointF far, double outer, double inner)
{
    if (outer < minKnotDistance)
        return near;
    const double outer2 = outer * outer;
    const double inner2 = inner * inner;
    return (near * (2 * outer2 + 3 * outer * inner + inner2) + far * outer2 - beyond * inner2) /
           (3 * outer * (outer + inner));
}

} // namespace

std::vector<BezierSegment> catmullRomCurve(std::span<const QPointF> points, double alpha)
{
    std::vector<BezierSegment> curve;
    if (points.size() < 2)
        return curve;
    curve.reserve(points.size() - 1);

    // Each end is its own neighbour.
    double before = 0;
    double here = knotDistance(points[0], points[1], alpha);
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const QPointF previous = points[i == 0 ? 0 : i - 1];
        const QPointF next = points[i + 2 < points.size() ? i + 2 : i + 1];
        const double after = knotDistance(points[i + 1], next, alpha);
        curve.push_back({
            .control1 = controlPoint(previous, points[i], points[i + 1], before, here),
            .control2 = controlPoint(next, points[i + 1], points[i], after, here),
            .end = points[i + 1],
        });
        before = here;
        here = after;
    }
    return curve;
}

} // namespace ostrel
