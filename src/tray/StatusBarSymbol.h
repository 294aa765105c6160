#pragma once

#include "SymbolIcon.h"

#include <QColor>
#include <QIcon>
#include <QString>

namespace ostrel {

class StatusBarHost;

/// Plain symbols that a status bar's host draws: they should have the colour of the host's own
/// text, which no desktop reports.
///
/// Hosts tint a picture that they know by a symbolic name, so the name is passed if the picture is
/// installed under it. Hosts that take pixels get them in the palette's text colour, if that is
/// known or likely to be the host's: on desktops that share it, and if it is light, because bars
/// beside dark windows are dark. Beside light windows bars are light or dark; then a tone that is
/// legible on both is used.
struct StatusBarSymbol
{
    QString symbol;
    QString themeName; ///< Only used if a picture is installed under it.
    SymbolRaster::Margin margin = SymbolRaster::Margin::ofGrid;

    /// @p textColor is the palette's.
    [[nodiscard]] QIcon icon(const QColor &textColor, const StatusBarHost &host) const;
};

} // namespace ostrel
