#pragma once

#include <QColor>

namespace ostrel {

/// Colours for what no view draws. One that the theme has as well is the same there.
struct ThemeColors
{
    [[nodiscard]] static QColor statusDown() { return QColor::fromRgbF(0.92F, 0.34F, 0.30F); }
    /// Legible on light and on dark ground alike.
    [[nodiscard]] static QColor onAnyGround() { return QColor::fromRgbF(0.5F, 0.5F, 0.5F); }
};

} // namespace ostrel
