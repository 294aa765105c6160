#pragma once

#include "SymbolIcon.h"

#include <QColor>
#include <QIcon>
#include <QString>

namespace ostrel {

class StatusBarHost;

/// Plain symbols for what a status bar's host draws: they should have the colour of the host's own
/// text, which no desktop tells.
///
/// Hosts tint a picture that they know by a symbolic name, so the name is given where the picture
/// is installed under it. To those who take pixels go pixels in the palette's text colour, where
/// that is known or likely to be the host's: on desktops that share it, and where it is light,
/// because bars beside dark windows are dark. Beside light windows bars are light or dark; there a
/// tone is taken that is legible on both.
struct StatusBarSymbol
{
    QString symbol;
    QString themeName; ///< Used only where a picture is installed under it.
    SymbolRaster::Margin margin = SymbolRaster::Margin::ofGrid;

    /// @p textColor is the palette's.
    [[nodiscard]] QIcon icon(const QColor &textColor, const StatusBarHost &host) const;
};

} // namespace ostrel
