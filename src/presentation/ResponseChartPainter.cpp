#include "ResponseChartPainter.h"

#include "LineCoverage.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <vector>

namespace ostrel {

namespace {

constexpr double lineOpacity = 0.85;
constexpr double miterLimit = 10;
constexpr double markRadius = 2.25;
constexpr double areaTopOpacity = 0.22;
constexpr double areaBottomOpacity = 0.02;
// How far the line may extend beyond the plot: half its width and a little of the curve's
// overshoot.
constexpr double overflow = 3;
// Stroking more takes several milliseconds, and tens of them if the points are far apart in height.
constexpr std::size_t maxStrokedPoints = 220;

QColor faded(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return color;
}

QRectF curveClip(const ResponseChart &chart)
{
    return chart.plot.adjusted(-overflow, -overflow, overflow, overflow);
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
    Hairline(double width, double deviceScale)
        : scale(deviceScale)
        , wanted(width * deviceScale)
        , pixels(std::max(1.0, std::round(wanted)))
    {
    }

    [[nodiscard]] double opacity() const { return std::min(1.0, wanted / pixels); }
    [[nodiscard]] double thickness() const { return pixels / scale; }
    /// The near edge of the line with its middle at @p position.
    [[nodiscard]] double edge(double position) const
    {
        return std::round(position * scale - pixels / 2) / scale;
    }

    double scale;
    double wanted; ///< The width in pixels of the device, which may be a fraction.
    double pixels;
};

void paintGrid(QPainter &painter, const ResponseChart &chart, const ChartStyle &style)
{
    const Hairline hairline(style.gridWidth, painter.deviceTransform().m11());
    const QColor shade = faded(style.grid, hairline.opacity());
    const QRectF &plot = chart.plot;
    for (const double x : chart.verticals)
        painter.fillRect(QRectF(hairline.edge(x), plot.top(), hairline.thickness(), plot.height()),
                         shade);
    for (const double y : chart.horizontals)
        painter.fillRect(QRectF(plot.left(), hairline.edge(y), plot.width(), hairline.thickness()),
                         shade);
}

QLinearGradient areaGradient(const ResponseChart &chart, const QColor &color)
{
    QLinearGradient gradient(0, chart.highest, 0, chart.plot.bottom());
    gradient.setColorAt(0, faded(color, areaTopOpacity));
    gradient.setColorAt(1, faded(color, areaBottomOpacity));
    return gradient;
}

void strokeCurve(QPainter &painter, const ResponseChart &chart, const QColor &color)
{
    const QPainterPath line = linePath(chart);
    painter.fillPath(areaUnder(line, chart), areaGradient(chart, color));
    QPen pen(faded(color, lineOpacity), ResponseChart::lineWidth, Qt::SolidLine, Qt::FlatCap,
             Qt::MiterJoin);
    pen.setMiterLimit(miterLimit);
    painter.strokePath(line, pen);
}

/// The pixels of a painter's device that a chart's curve may touch.
class CurvePixels
{
public:
    CurvePixels(QPainter &painter, const QRectF &seen)
        : m_painter(painter)
        , m_scale(painter.deviceTransform().m11())
        , m_area(scaled(seen).toAlignedRect())
    {
    }

    [[nodiscard]] double scale() const { return m_scale; }
    [[nodiscard]] QRect area() const { return m_area; }

    void paint(const PixelCoverage &coverage, const QBrush &brush)
    {
        QImage picture = coverage.tinted(rowColors(brush));
        picture.setDevicePixelRatio(m_scale);
        m_painter.drawImage(QPointF(m_area.topLeft()) / m_scale, picture);
    }

private:
    [[nodiscard]] QRectF scaled(const QRectF &rect) const
    {
        return {rect.topLeft() * m_scale, rect.size() * m_scale};
    }

    /// What @p brush, which is the same along each row, paints there.
    [[nodiscard]] std::vector<QRgb> rowColors(const QBrush &brush) const
    {
        QImage column(1, m_area.height(), QImage::Format_ARGB32_Premultiplied);
        column.fill(Qt::transparent);
        QPainter painter(&column);
        painter.translate(0, -m_area.top());
        painter.scale(m_scale, m_scale);
        painter.fillRect(QRectF(0, m_area.top() / m_scale, 1, m_area.height() / m_scale), brush);
        painter.end();
        const auto *colors = reinterpret_cast<const QRgb *>(column.constBits());
        return {colors, colors + m_area.height()};
    }

    QPainter &m_painter;
    double m_scale;
    QRect m_area;
};

/// @p path, which is one line, as straight stretches in pixels of a device of @p scale.
QPolygonF flattened(const QPainterPath &path, double scale)
{
    // Qt is content with half a pixel.
    constexpr double precision = 2;
    const double fine = precision * scale;
    const QPolygonF line = path.toSubpathPolygons(QTransform::fromScale(fine, fine)).front();
    return QTransform::fromScale(1 / precision, 1 / precision).map(line);
}

/// The same picture as that of strokeCurve, but for the rounding of its edges.
void coverCurve(QPainter &painter, const ResponseChart &chart, const QColor &color)
{
    CurvePixels pixels(painter, curveClip(chart));
    const double scale = pixels.scale();
    const QPolygonF line = flattened(linePath(chart), scale);
    pixels.paint(coverageUnder(line, chart.plot.bottom() * scale, pixels.area()),
                 areaGradient(chart, color));
    pixels.paint(lineCoverage(line, ResponseChart::lineWidth * scale, pixels.area()),
                 faded(color, lineOpacity));
}

void paintCurve(QPainter &painter, const ResponseChart &chart, const QColor &color)
{
    const bool isLong = chart.points.size() > maxStrokedPoints;
    (isLong ? coverCurve : strokeCurve)(painter, chart, color);
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
    paintGrid(painter, chart, style);
    painter.save();
    painter.setClipRect(curveClip(chart));
    paintCurve(painter, chart, style.line);
    paintMarks(painter, chart, style.line);
    painter.restore();
    paintLabels(painter, chart, style);
}

} // namespace ostrel
