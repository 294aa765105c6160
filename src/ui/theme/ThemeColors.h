#pragma once

#include <QColor>

namespace ostrel {

/// Colours of the theme for what no view draws; each is the one of the same name there.
struct ThemeColors
{
    [[nodiscard]] static QColor statusDown() { return QColor::fromRgbF(0.92F, 0.34F, 0.30F); }
};

} // namespace ostrel
