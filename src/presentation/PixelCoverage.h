#pragma once

#include <QImage>
#include <QRect>

#include <span>
#include <vector>

namespace ostrel {

/// How much of each pixel of a picture is covered by a shape. The shape is given as uprights, eight
/// to each column of pixels.
class PixelCoverage
{
public:
    explicit PixelCoverage(QRect area);

    [[nodiscard]] int uprights() const { return uprightsPerColumn * m_area.width(); }
    /// The abscissa of an upright.
    [[nodiscard]] double abscissa(int upright) const;
    /// The first upright that isn't left of @p x.
    [[nodiscard]] int uprightAt(double x) const;

    /// Covers what of @p upright lies between two ordinates. Nothing may be covered twice.
    void cover(int upright, double top, double bottom);

    /// The covered pixels, each row in one premultiplied colour; those covered in part are paler.
    [[nodiscard]] QImage tinted(std::span<const QRgb> rowColors) const;

private:
    static constexpr int uprightsPerColumn = 8;

    [[nodiscard]] std::size_t indexOf(int column, int row) const;
    void addBelow(int upright, double ordinate, int sign);

    QRect m_area;
    std::vector<qint16> m_steps; ///< By how much each pixel is covered more than the one above.
};

} // namespace ostrel
