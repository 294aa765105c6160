#pragma once

#include <QImage>

namespace ostrel {

/// How large an icon is in its file, on its longer side. Writing a larger one takes long.
inline constexpr int largestKeptSide = 1024;
/// How large an icon is in memory: several times as large as any view shows it, and small enough to
/// be painted by the way.
inline constexpr int largestShownSide = 256;

/// @p icon for its file, and for the views: as it is, or scaled down. Null for a null one. Any
/// thread; not the main one, for it may take milliseconds.
[[nodiscard]] QImage keptIcon(const QImage &icon);
[[nodiscard]] QImage shownIcon(const QImage &icon);

} // namespace ostrel
