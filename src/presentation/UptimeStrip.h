#pragma once

#include <QColor>
#include <QRectF>
#include <QSizeF>

#include <vector>

class QPainter;

namespace ostrel {

/// The colours of an uptime strip.
struct StripStyle
{
    QColor up = {};
    QColor down = {};
    QColor empty = {}; ///< For the strip before the first check.
};

/// The positions of @p count bars that share a row of @p size. Widths are not rounded.
[[nodiscard]] std::vector<QRectF> stripBars(std::size_t count, QSizeF size);

/// Draws @p bars, each up or down, in a row of @p size with round corners; an empty row if there
/// are none.
void paintUptimeStrip(QPainter &painter, const std::vector<bool> &bars, QSizeF size,
                      const StripStyle &style);

} // namespace ostrel
