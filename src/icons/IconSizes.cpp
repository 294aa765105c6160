#include "IconSizes.h"

namespace ostrel {

namespace {

QImage scaledDown(const QImage &icon, int largestSide)
{
    const QSize bounds(largestSide, largestSide);
    if (icon.size().boundedTo(bounds) == icon.size())
        return icon;
    const QSize fitting = icon.size().scaled(bounds, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return icon.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

QImage keptIcon(const QImage &icon)
{
    return scaledDown(icon, largestKeptSide);
}

QImage shownIcon(const QImage &icon)
{
    return scaledDown(icon, largestShownSide);
}

} // namespace ostrel
