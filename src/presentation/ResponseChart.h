#pragma once

#include "CatmullRom.h"
#include "ClockStyle.h"
#include "ResponseSeries.h"

#include <QLocale>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QTimeZone>

#include <functional>
#include <vector>

namespace ostrel {

/// The sizes of a chart's labels, in device-independent pixels.
struct LabelMetrics
{
    std::function<double(const QString &)> width;
    double capHeight;
};

/// A text and the left end of its baseline.
struct ChartLabel
{
    QString text;
    QPointF position;

    bool operator==(const ChartLabel &) const = default;
};

/// The positions of everything in the body of a response-time chart, in device-independent pixels
/// from its top left corner. Empty if there is no line to draw.
struct ResponseChart
{
    static constexpr double lineWidth = 2.5;

    QRectF plot = {};
    std::vector<QPointF> points = {};      ///< Those of the series that the line goes through.
    std::vector<BezierSegment> curve = {}; ///< From the first point through all others.
    std::vector<QPointF> marks = {};       ///< The centres of the discs.
    std::vector<double> horizontals = {};  ///< The grid lines' ordinates.
    std::vector<double> verticals = {};    ///< The grid lines' abscissas.
    std::vector<ChartLabel> labels = {};
    double highest = 0; ///< The ordinate of the series' highest point.

    [[nodiscard]] bool isEmpty() const { return points.empty(); }
};

/// The chart of @p series in a body of @p size. Labels never overlap and never extend beyond the
/// body: those that would are left out.
[[nodiscard]] ResponseChart responseChart(const ResponseSeries &series, QSizeF size,
                                          const LabelMetrics &metrics, const ClockStyle &clock);

} // namespace ostrel
