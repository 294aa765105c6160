#pragma once

#include "PixelCoverage.h"

#include <QPointF>

#include <span>

namespace ostrel {

/// What a round pen of @p width covers of the pixels of @p area while it follows @p line, with both
/// ends cut off: what stroking a smooth curve covers.
[[nodiscard]] PixelCoverage lineCoverage(std::span<const QPointF> line, double width, QRect area);

/// What lies below the top of @p line down to @p baseline, between the abscissas of the line's
/// ends, of the pixels of @p area.
[[nodiscard]] PixelCoverage coverageUnder(std::span<const QPointF> line, double baseline,
                                          QRect area);

} // namespace ostrel
