#include "ResponseChartPainter.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <span>

namespace ostrel {

namespace {

constexpr double gridWidth = 0.4;
constexpr double lineOpacity = 0.85;
constexpr double miterLimit = 10;
constexpr double markRadius = 2.25;
constexpr double areaTopOpacity = 0.22;
constexpr double areaBottomOpacity = 0.02;
// How far the line may extend beyond the plot: half its width and a little of the curve's
// overshoot.
constexpr double overflow = 3;
// The width of the pieces in which a band is filled: the fastest of those measured.
constexpr int piecePixels = 32;

QColor faded(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return color;
}

QPainterPath linePath(const ResponseChart &chart)
{
    QPainterPath path(chart.points.front());
    path.reserve(static_cast<int>(3 * chart.curve.size() + 4));
    for (const BezierSegment &segment : chart.curve)
        path.cubicTo(segment.control1, segment.control2, segment.end);
    return path;
}

QPainterPath areaUnder(QPainterPath path, const ResponseChart &chart)
{
    const double baseline = chart.plot.bottom();
    path.lineTo(chart.points.back().x(), baseline);
    path.lineTo(chart.points.front().x(), baseline);
    path.closeSubpath();
    return path;
}

/// A thin line in whole pixels of the device; its excess width is compensated by a lower opacity.
struct Hairline
{
    explicit Hairline(double deviceScale)
        : scale(deviceScale)
        , pixels(std::max(1.0, std::round(gridWidth * deviceScale)))
    {
    }

    [[nodiscard]] double opacity() const { return std::min(1.0, gridWidth * scale / pixels); }
    [[nodiscard]] double thickness() const { return pixels / scale; }
    /// The near edge of the line with its middle at @p position.
    [[nodiscard]] double edge(double position) const
    {
        return std::round(position * scale - pixels / 2) / scale;
    }

    double scale;
    double pixels;
};

void paintGrid(QPainter &painter, const ResponseChart &chart, const QColor &color)
{
    const Hairline hairline(painter.deviceTransform().m11());
    const QColor shade = faded(color, hairline.opacity());
    const QRectF &plot = chart.plot;
    for (const double x : chart.verticals)
        painter.fillRect(QRectF(hairline.edge(x), plot.top(), hairline.thickness(), plot.height()),
                         shade);
    for (const double y : chart.horizontals)
        painter.fillRect(QRectF(plot.left(), hairline.edge(y), plot.width(), hairline.thickness()),
                         shade);
}

/// The points of a band's upper edge from @p first to before @p last, and those below them.
struct BandPart
{
    std::span<const QPointF> upper;
    std::span<const QPointF> lower; ///< From right to left.
};

BandPart bandPart(std::span<const QPointF> band, std::size_t first, std::size_t last)
{
    const std::size_t count = last - first;
    return {.upper = band.subspan(first, count), .lower = band.subspan(band.size() - last, count)};
}

void addLines(QPainterPath &path, std::span<const QPointF> points)
{
    for (const QPointF &point : points)
        path.lineTo(point);
}

QPainterPath outline(const BandPart &part)
{
    QPainterPath path(part.upper.front());
    path.reserve(static_cast<int>(part.upper.size() + part.lower.size() + 2));
    addLines(path, part.upper.subspan(1));
    addLines(path, part.lower);
    return path;
}

QPainterPath outlineDownTo(double baseline, std::span<const QPointF> upper)
{
    QPainterPath path(upper.front());
    path.reserve(static_cast<int>(upper.size() + 4));
    addLines(path, upper.subspan(1));
    path.lineTo(upper.back().x(), baseline);
    path.lineTo(upper.front().x(), baseline);
    return path;
}

/// The part of @p band that is visible from @p left to @p right, and a little more at both ends, so
/// that these are outside whatever the device's rounding.
BandPart bandBetween(std::span<const QPointF> band, double left, double right)
{
    constexpr std::ptrdiff_t surplus = 2;
    const auto upper = band.first(band.size() / 2);
    const auto indexOf = [upper](double x) {
        return std::ranges::lower_bound(upper, x, {}, &QPointF::x) - upper.begin();
    };
    const auto first = std::max(std::ptrdiff_t(0), indexOf(left) - surplus);
    const auto last = std::min(std::ssize(upper), indexOf(right) + surplus);
    return bandPart(band, static_cast<std::size_t>(first), static_cast<std::size_t>(last));
}

/// Fills @p band piece by piece, as @p pathOf shapes it.
///
/// For every cell that it adds to a row, the rasterizer searches the row's cells from the start: a
/// ragged outline takes time quadratic in its width. As the pieces are cut at whole pixels of the
/// device, they give the same picture.
template<typename PathOf>
void fillBand(QPainter &painter, const ResponseChart &chart, const QBrush &brush, PathOf pathOf)
{
    const std::span<const QPointF> band(chart.band);
    const double scale = painter.deviceTransform().m11();
    const double begin = band.front().x();
    const double end = band[band.size() / 2].x();
    const auto lastPixel = static_cast<int>(std::ceil(end * scale));
    for (auto pixel = static_cast<int>(begin * scale); pixel < lastPixel; pixel += piecePixels) {
        const double left = pixel / scale;
        const double width = piecePixels / scale;
        painter.save();
        painter.setClipRect(QRectF(left, 0, width, chart.plot.bottom() + overflow),
                            Qt::IntersectClip);
        painter.fillPath(pathOf(bandBetween(band, left, left + width)), brush);
        painter.restore();
    }
}

void paintArea(QPainter &painter, const ResponseChart &chart, const QColor &color)
{
    const double baseline = chart.plot.bottom();
    QLinearGradient gradient(0, chart.highest, 0, baseline);
    gradient.setColorAt(0, faded(color, areaTopOpacity));
    gradient.setColorAt(1, faded(color, areaBottomOpacity));
    if (chart.band.empty()) {
        painter.fillPath(areaUnder(linePath(chart), chart), gradient);
        return;
    }
    fillBand(painter, chart, gradient,
             [baseline](const BandPart &part) { return outlineDownTo(baseline, part.upper); });
}

void paintLine(QPainter &painter, const ResponseChart &chart, const QColor &color)
{
    if (!chart.band.empty()) {
        fillBand(painter, chart, faded(color, lineOpacity), outline);
        return;
    }
    QPen pen(faded(color, lineOpacity), ResponseChart::lineWidth, Qt::SolidLine, Qt::FlatCap,
             Qt::MiterJoin);
    pen.setMiterLimit(miterLimit);
    painter.strokePath(linePath(chart), pen);
}

void paintMarks(QPainter &painter, const ResponseChart &chart, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    for (const QPointF &mark : chart.marks)
        painter.drawEllipse(mark, markRadius, markRadius);
}

void paintLabels(QPainter &painter, const ResponseChart &chart, const ChartStyle &style)
{
    painter.setPen(style.label);
    painter.setFont(style.font);
    for (const ChartLabel &label : chart.labels)
        painter.drawText(label.position, label.text);
}

} // namespace

LabelMetrics labelMetrics(const QFont &font)
{
    const QFontMetricsF metrics(font);
    return {
        .width = [metrics](const QString &text) { return metrics.horizontalAdvance(text); },
        .capHeight = metrics.capHeight(),
    };
}

void paintResponseChart(QPainter &painter, const ResponseChart &chart, const ChartStyle &style)
{
    if (chart.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    paintGrid(painter, chart, style.grid);
    painter.save();
    painter.setClipRect(chart.plot.adjusted(-overflow, -overflow, overflow, overflow));
    paintArea(painter, chart, style.line);
    paintLine(painter, chart, style.line);
    paintMarks(painter, chart, style.line);
    painter.restore();
    paintLabels(painter, chart, style);
}

} // namespace ostrel
