#pragma once

#include "ResponseChart.h"

#include <QColor>
#include <QFont>

class QPainter;

namespace ostrel {

/// The colours and font of a response-time chart.
struct ChartStyle
{
    QColor line = {}; ///< For the line, the area under it and the discs.
    QColor grid = {};
    double gridWidth = 0.4; ///< In device-independent pixels.
    QColor label = {};
    QFont font = {};
};

/// The sizes of labels in @p font.
[[nodiscard]] LabelMetrics labelMetrics(const QFont &font);

/// Draws @p chart with its body's top left corner at the painter's origin. Grid lines are aligned
/// to whole pixels of the device, whatever the painter's scale.
void paintResponseChart(QPainter &painter, const ResponseChart &chart, const ChartStyle &style);

} // namespace ostrel
