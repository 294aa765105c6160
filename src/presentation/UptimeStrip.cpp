#include "UptimeStrip.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace ostrel {

namespace {

constexpr double gap = 1.5;
constexpr double barRadius = 2;
constexpr double stripRadius = 5;

QPainterPath roundedRect(const QRectF &rect, double radius)
{
    // If bars are thinner than their corners, the corners are made smaller.
    const double fitting = std::min({radius, rect.width() / 2, rect.height() / 2});
    QPainterPath path;
    path.addRoundedRect(rect, fitting, fitting);
    return path;
}

/// A clip would have jagged corners, so the bars in the strip's corners are cut out.
QPainterPath barPath(const QRectF &bar, const QRectF &strip)
{
    const QPainterPath path = roundedRect(bar, barRadius);
    const bool isInCorner =
        bar.left() < strip.left() + stripRadius || bar.right() > strip.right() - stripRadius;
    return isInCorner ? path.intersected(roundedRect(strip, stripRadius)) : path;
}

} // namespace

std::vector<QRectF> stripBars(std::size_t count, QSizeF size)
{
    std::vector<QRectF> bars;
    bars.reserve(count);
    const auto number = static_cast<double>(count);
    const double width = std::max(0.0, (size.width() - gap * (number - 1)) / number);
    for (std::size_t i = 0; i < count; ++i)
        bars.emplace_back(static_cast<double>(i) * (width + gap), 0, width, size.height());
    return bars;
}

void paintUptimeStrip(QPainter &painter, const std::vector<bool> &bars, QSizeF size,
                      const StripStyle &style)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF strip({}, size);
    if (bars.empty()) {
        painter.fillPath(roundedRect(strip, stripRadius), style.empty);
        return;
    }
    const auto rects = stripBars(bars.size(), size);
    for (std::size_t i = 0; i < rects.size(); ++i)
        painter.fillPath(barPath(rects[i], strip), bars[i] ? style.up : style.down);
}

} // namespace ostrel
