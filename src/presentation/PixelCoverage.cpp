#include "PixelCoverage.h"

#include <algorithm>
#include <cmath>

namespace ostrel {

namespace {

/// What a pixel counts that is covered wholly.
constexpr int whole = 256;

/// @p color, as much of it as @p covered is of the whole.
QRgb paler(QRgb color, int covered)
{
    const auto part = static_cast<QRgb>(covered);
    // Two of the four bytes at once, with room between them.
    constexpr QRgb bytes = 0x00ff00ff;
    const QRgb redBlue = (color & bytes) * part / whole & bytes;
    const QRgb alphaGreen = (color >> 8 & bytes) * part & ~bytes;
    return redBlue | alphaGreen;
}

} // namespace

PixelCoverage::PixelCoverage(QRect area)
    : m_area(area)
    , m_steps(static_cast<std::size_t>(area.width()) * static_cast<std::size_t>(area.height()))
{
}

double PixelCoverage::abscissa(int upright) const
{
    return m_area.left() + (upright + 0.5) / uprightsPerColumn;
}

int PixelCoverage::uprightAt(double x) const
{
    const double upright = std::ceil((x - m_area.left()) * uprightsPerColumn - 0.5);
    return static_cast<int>(std::clamp<double>(upright, 0, uprights()));
}

void PixelCoverage::cover(int upright, double top, double bottom)
{
    addBelow(upright, top, 1);
    addBelow(upright, bottom, -1);
}

std::size_t PixelCoverage::indexOf(int column, int row) const
{
    const auto width = static_cast<std::size_t>(m_area.width());
    return static_cast<std::size_t>(row) * width + static_cast<std::size_t>(column);
}

void PixelCoverage::addBelow(int upright, double ordinate, int sign)
{
    constexpr int share = whole / uprightsPerColumn;
    const double y = std::clamp<double>(ordinate - m_area.top(), 0, m_area.height());
    const int parts = static_cast<int>(std::lround(y * share));
    const int above = parts % share;
    const std::size_t index = indexOf(upright / uprightsPerColumn, parts / share);
    const std::size_t below = index + static_cast<std::size_t>(m_area.width());
    if (index < m_steps.size())
        m_steps[index] = static_cast<qint16>(m_steps[index] + sign * (share - above));
    if (below < m_steps.size())
        m_steps[below] = static_cast<qint16>(m_steps[below] + sign * above);
}

QImage PixelCoverage::tinted(std::span<const QRgb> rowColors) const
{
    const auto width = static_cast<std::size_t>(m_area.width());
    QImage picture(m_area.size(), QImage::Format_ARGB32_Premultiplied);
    std::vector<qint16> covered(width);
    for (int row = 0; row < m_area.height(); ++row) {
        const QRgb color = rowColors[static_cast<std::size_t>(row)];
        const qint16 *steps = m_steps.data() + indexOf(0, row);
        auto *pixels = reinterpret_cast<QRgb *>(picture.scanLine(row));
        for (std::size_t column = 0; column < width; ++column) {
            covered[column] = static_cast<qint16>(covered[column] + steps[column]);
            pixels[column] = paler(color, covered[column]);
        }
    }
    return picture;
}

} // namespace ostrel
