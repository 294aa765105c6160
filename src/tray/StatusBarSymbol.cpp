#include "StatusBarSymbol.h"

#include "StatusBarHost.h"
#include "ThemeColors.h"

namespace ostrel {

namespace {

bool isLight(const QColor &color)
{
    return color.lightnessF() > 0.5F;
}

} // namespace

QIcon StatusBarSymbol::icon(const QColor &textColor, const StatusBarHost &host) const
{
    const bool suitsHost = host.hasOurPalette() || isLight(textColor);
    return SymbolIcon::icon({.symbol = symbol,
                             .color = suitsHost ? textColor : ThemeColors::onAnyGround(),
                             .margin = margin,
                             .themeName = QIcon::hasThemeIcon(themeName) ? themeName : QString()});
}

} // namespace ostrel
