#include "LineCoverage.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

namespace ostrel {

namespace {

struct Interval
{
    double top;
    double bottom;
};

/// What is covered of an upright, in parts that don't touch each other.
using Intervals = QVarLengthArray<Interval, 2>;

void add(Intervals &intervals, Interval added)
{
    const auto touching = [&added](const Interval &interval) {
        if (interval.bottom < added.top || interval.top > added.bottom)
            return false;
        added = {std::min(interval.top, added.top), std::max(interval.bottom, added.bottom)};
        return true;
    };
    intervals.erase(std::remove_if(intervals.begin(), intervals.end(), touching), intervals.end());
    intervals.append(added);
}

/// A straight part of the line.
class Stretch
{
public:
    Stretch(QPointF one, QPointF other)
        : m_left(one.x() <= other.x() ? one : other)
        , m_right(one.x() <= other.x() ? other : one)
    {
        const QPointF delta = m_right - m_left;
        // That of an upright one is as good as its true one, and finite.
        constexpr double minWidth = 1e-9;
        const double width = std::max(delta.x(), minWidth);
        m_right.setX(m_left.x() + width);
        m_slope = delta.y() / width;
        m_sine = delta.y() / std::hypot(width, delta.y());
    }

    [[nodiscard]] double left() const { return m_left.x(); }
    [[nodiscard]] double right() const { return m_right.x(); }
    [[nodiscard]] double at(double x) const { return m_left.y() + m_slope * (x - m_left.x()); }

    /// What a pen of @p radius covers of the upright at @p x, which it touches.
    [[nodiscard]] Interval covered(double x, double radius) const
    {
        // Where the pen is while its edge makes the top and the bottom.
        const double lean = radius * m_sine;
        const double above = std::clamp(x - lean, left(), right());
        const double below = std::clamp(x + lean, left(), right());
        return {at(above) - halfChord(radius, x - above), at(below) + halfChord(radius, x - below)};
    }

private:
    static double halfChord(double radius, double distance)
    {
        return std::sqrt(std::max(0.0, radius * radius - distance * distance));
    }

    QPointF m_left;
    QPointF m_right;
    double m_slope;
    double m_sine;
};

/// An end of the line, across which it is cut off.
class LineEnd
{
public:
    LineEnd(QPointF end, QPointF next)
        : m_end(end)
        , m_inwards(next - end)
    {
    }

    [[nodiscard]] bool isWithin(double distance, QPointF point) const
    {
        const QPointF delta = point - m_end;
        return std::hypot(delta.x(), delta.y()) < distance;
    }

    /// What is left of @p interval of the upright at @p x; its top is below its bottom if nothing
    /// is.
    [[nodiscard]] Interval cut(Interval interval, double x) const
    {
        // Infinite where the line is level, and below everything beyond the end.
        const double y = m_end.y() - (x - m_end.x()) * m_inwards.x() / m_inwards.y();
        if (m_inwards.y() >= 0)
            return {std::max(interval.top, y), interval.bottom};
        return {interval.top, std::min(interval.bottom, y)};
    }

private:
    QPointF m_end;
    QPointF m_inwards;
};

/// A pen with a round tip that follows a line.
class Pen
{
public:
    Pen(std::span<const QPointF> line, double width)
        : m_line(line)
        , m_radius(width / 2)
        , m_start(line.front(), line[1])
        , m_finish(line.back(), line[line.size() - 2])
    {
    }

    [[nodiscard]] std::vector<Intervals> covered(const PixelCoverage &uprights) const
    {
        std::vector<Intervals> covered(static_cast<std::size_t>(uprights.uprights()));
        for (std::size_t i = 1; i < m_line.size(); ++i) {
            const Part part = partTo(i);
            const int last = uprights.uprightAt(part.stretch.right() + m_radius);
            int upright = uprights.uprightAt(part.stretch.left() - m_radius);
            for (; upright < last; ++upright) {
                const Interval interval = coveredOn(part, uprights.abscissa(upright));
                if (interval.top < interval.bottom)
                    add(covered[static_cast<std::size_t>(upright)], interval);
            }
        }
        return covered;
    }

private:
    struct Part
    {
        Stretch stretch;
        bool isNearStart;
        bool isNearFinish;
    };

    [[nodiscard]] Part partTo(std::size_t point) const
    {
        const QPointF from = m_line[point - 1];
        const QPointF to = m_line[point];
        return {Stretch(from, to), m_start.isWithin(m_radius, from),
                m_finish.isWithin(m_radius, to)};
    }

    [[nodiscard]] Interval coveredOn(const Part &part, double x) const
    {
        Interval interval = part.stretch.covered(x, m_radius);
        if (part.isNearStart)
            interval = m_start.cut(interval, x);
        if (part.isNearFinish)
            interval = m_finish.cut(interval, x);
        return interval;
    }

    std::span<const QPointF> m_line;
    double m_radius;
    LineEnd m_start;
    LineEnd m_finish;
};

} // namespace

PixelCoverage lineCoverage(std::span<const QPointF> line, double width, QRect area)
{
    PixelCoverage coverage(area);
    int upright = 0;
    for (const Intervals &intervals : Pen(line, width).covered(coverage)) {
        for (const Interval &interval : intervals)
            coverage.cover(upright, interval.top, interval.bottom);
        ++upright;
    }
    return coverage;
}

PixelCoverage coverageUnder(std::span<const QPointF> line, double baseline, QRect area)
{
    PixelCoverage coverage(area);
    std::vector<double> tops(static_cast<std::size_t>(coverage.uprights()), baseline);
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Stretch stretch(line[i - 1], line[i]);
        const int last = coverage.uprightAt(stretch.right());
        for (int upright = coverage.uprightAt(stretch.left()); upright < last; ++upright) {
            double &top = tops[static_cast<std::size_t>(upright)];
            top = std::min(top, stretch.at(coverage.abscissa(upright)));
        }
    }
    const int end = coverage.uprightAt(line.back().x());
    for (int upright = coverage.uprightAt(line.front().x()); upright < end; ++upright)
        coverage.cover(upright, tops[static_cast<std::size_t>(upright)], baseline);
    return coverage;
}

} // namespace ostrel
