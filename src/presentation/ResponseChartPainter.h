#pragma once

#include "ResponseChart.h"

#include <QColor>
#include <QFont>

class QPainter;

namespace ostrel {

/// The colours and face of a response-time chart.
struct ChartStyle
{
    QColor line = {}; ///< Of the line, the area under it and the discs.
    QColor grid = {};
    QColor label = {};
    QFont font = {};
};

/// How large labels of @p font are.
[[nodiscard]] LabelMetrics labelMetrics(const QFont &font);

/// Draws @p chart with its body's top left corner at the painter's origin. Lines of the grid are
/// laid on whole pixels of the device, whatever the painter's scale.
void paintResponseChart(QPainter &painter, const ResponseChart &chart, const ChartStyle &style);

} // namespace ostrel
