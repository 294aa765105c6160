#pragma once

#include <QColor>
#include <QImage>
#include <QString>

namespace ostrel {

/// Draws the symbols. Each is drawn once per size and colour and kept in a bounded cache. Main
/// thread only.
class SymbolRaster
{
public:
    enum class Margin {
        ofGrid,   ///< Grows with the size, like everything in the drawing.
        onePixel, ///< One pixel at every size, for pictures that stand alone.
    };

    /// The symbol @p name in a square of @p pixels device pixels, drawn in @p color. Null if there
    /// is no such symbol.
    [[nodiscard]] static QImage image(const QString &name, int pixels, const QColor &color,
                                      Margin margin = Margin::ofGrid);

    /// The side of the box of a symbol with system size @p systemSize (the size of the text beside
    /// it).
    [[nodiscard]] static qreal boxFor(qreal systemSize);
};

} // namespace ostrel
