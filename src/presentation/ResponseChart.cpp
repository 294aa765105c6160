#include "ResponseChart.h"

#include "Monitor.h"
#include "PointThinning.h"
#include "TimeAxis.h"
#include "ValueAxis.h"

#include <algorithm>

namespace ostrel {

namespace {

constexpr double leftMargin = 32;
constexpr double rightMargin = 8;
constexpr double topMargin = 8;
constexpr double bottomMargin = 20;
constexpr double valueLabelGap = 8;
constexpr double timeLabelRise = 4;
constexpr double minLabelGap = 4;
constexpr double centripetal = 0.5;
// Of more than two points in such a stretch of the plot, no one can tell which is which.
constexpr double thinnedSection = 2;

/// Maps times and values to the plot.
struct Scales
{
    QRectF plot;
    Timestamp first;
    Timestamp last;
    ValueAxis values;

    [[nodiscard]] double x(Timestamp time) const
    {
        // All checks are within one second: files hold no fractions.
        if (first == last)
            return plot.center().x();
        const Milliseconds span = last - first;
        return plot.left() + plot.width() * (Milliseconds(time - first) / span);
    }

    [[nodiscard]] double y(double value) const
    {
        return plot.bottom() - plot.height() * (value / values.end());
    }
};

double plottedValue(const ResponseSeries::Point &point)
{
    return std::clamp(point.responseTime, 0.0, maxPlottedValue);
}

QString valueText(double value)
{
    return QString::number(static_cast<qint64>(value));
}

QRectF plotIn(QSizeF size, const ValueAxis &values, const LabelMetrics &metrics)
{
    const double left =
        std::max(leftMargin, metrics.width(valueText(values.end())) + valueLabelGap);
    return {left, topMargin, std::max(0.0, size.width() - left - rightMargin),
            std::max(0.0, size.height() - topMargin - bottomMargin)};
}

Scales makeScales(const ResponseSeries &series, QSizeF size, const LabelMetrics &metrics)
{
    const auto highest = std::ranges::max(series.points, {}, plottedValue);
    const ValueAxis values = valueAxis(plottedValue(highest));
    return {
        .plot = plotIn(size, values, metrics),
        .first = series.points.front().time,
        .last = series.points.back().time,
        .values = values,
    };
}

void plotSeries(ResponseChart &chart, const ResponseSeries &series, const Scales &scales)
{
    chart.points.reserve(series.points.size());
    for (const auto &point : series.points)
        chart.points.emplace_back(scales.x(point.time), scales.y(plottedValue(point)));
    if (!series.hasMarks())
        chart.points = thinnedPoints(chart.points, chart.plot.left(), thinnedSection);
    chart.curve = catmullRomCurve(chart.points, centripetal);
    chart.highest = std::ranges::min(chart.points, {}, &QPointF::y).y();
    if (series.hasMarks())
        chart.marks = chart.points;
}

void addValueAxis(ResponseChart &chart, const Scales &scales, const LabelMetrics &metrics)
{
    for (int i = 0; i <= scales.values.steps; ++i) {
        const double value = scales.values.step * i;
        const double y = scales.y(value);
        const QString text = valueText(value);
        const double right = scales.plot.left() - valueLabelGap;
        chart.horizontals.push_back(y);
        chart.labels.push_back({text, {right - metrics.width(text), y + metrics.capHeight / 2}});
    }
}

void addTimeAxis(ResponseChart &chart, const Scales &scales, QSizeF size,
                 const LabelMetrics &metrics, const std::vector<TimeTick> &ticks)
{
    double free = 0;
    for (const TimeTick &tick : ticks) {
        const double x = scales.x(tick.time);
        chart.verticals.push_back(x);
        const double width = metrics.width(tick.label);
        const double left = x - width / 2;
        if (left < free || left + width > size.width())
            continue;
        chart.labels.push_back({tick.label, {left, size.height() - timeLabelRise}});
        free = left + width + minLabelGap;
    }
}

} // namespace

ResponseChart responseChart(const ResponseSeries &series, QSizeF size, const LabelMetrics &metrics,
                            const ClockStyle &clock)
{
    if (!series.isPlottable())
        return {};
    const Scales scales = makeScales(series, size, metrics);
    ResponseChart chart{.plot = scales.plot};
    plotSeries(chart, series, scales);
    addValueAxis(chart, scales, metrics);
    addTimeAxis(chart, scales, size, metrics, timeTicks(scales.first, scales.last, clock));
    return chart;
}

} // namespace ostrel
