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
// How far the line may leave the plot: its own half width and a little of the curve's swing.
constexpr double overflow = 3;

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

QPainterPath polygonPath(std::span<const QPointF> points)
{
    QPainterPath path(points.front());
    path.reserve(static_cast<int>(points.size() + 3));
    for (const QPointF &point : points.subspan(1))
        path.lineTo(point);
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

/// A thin line as whole pixels of the device, with what they are too wide taken from the opacity.
struct Hairline
{
    explicit Hairline(double deviceScale)
        : scale(deviceScale)
        , pixels(std::max(1.0, std::round(gridWidth * deviceScale)))
    {
    }

    [[nodiscard]] double opacity() const { return std::min(1.0, gridWidth * scale / pixels); }
    [[nodiscard]] double thickness() const { return pixels / scale; }
    /// The near edge of the line whose middle is at @p position.
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

/// The upper edge of the band, which is the first half of its outline.
QPainterPath ridgePath(const ResponseChart &chart)
{
    return polygonPath(std::span(chart.band).first(chart.band.size() / 2));
}

void paintArea(QPainter &painter, const ResponseChart &chart, const QColor &color)
{
    QLinearGradient gradient(0, chart.highest, 0, chart.plot.bottom());
    gradient.setColorAt(0, faded(color, areaTopOpacity));
    gradient.setColorAt(1, faded(color, areaBottomOpacity));
    const QPainterPath edge = chart.band.empty() ? linePath(chart) : ridgePath(chart);
    painter.fillPath(areaUnder(edge, chart), gradient);
}

void paintLine(QPainter &painter, const ResponseChart &chart, const QColor &color)
{
    if (!chart.band.empty()) {
        painter.fillPath(polygonPath(chart.band), faded(color, lineOpacity));
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
