#pragma once

#include <QPointF>

#include <span>
#include <vector>

namespace ostrel {

/// A cubic Bézier curve that begins at the end of the previous one.
struct BezierSegment
{
    QPointF control1;
    QPointF control2;
    QPointF end;

    bool operator==(const BezierSegment &) const = default;
};

/// The Catmull-Rom curve through @p points, as one Bézier segment from each point to the next: one
/// fewer than there are points, none for fewer than two.
///
/// The distance of knots is the points' distance to the power of @p alpha: 0 gives the uniform
/// curve, 0.5 the centripetal one, which has neither cusps nor loops within a segment, 1 the
/// chordal one. Points may coincide. See Yuksel, Schaefer, Keyser, "Parameterization and
/// applications of Catmull-Rom curves", Computer-Aided Design 43 (2011), section 3, for the Bézier
/// form.
[[nodiscard]] std::vector<BezierSegment> catmullRomCurve(std::span<const QPointF> points,
                                                         double alpha);

} // namespace ostrel
