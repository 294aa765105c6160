#pragma once

#include <QImage>

namespace ostrel {

/// Upper bound for the longer side of an icon in its file. Writing a larger one takes long.
inline constexpr int largestKeptSide = 1024;
/// Upper bound for the longer side of an icon in memory: several times as large as any view shows
/// it, and small enough to be painted quickly.
inline constexpr int largestShownSide = 256;

/// @p icon for its file, and for the views: unchanged, or scaled down. Null if @p icon is null. Any
/// thread but the main one, since it may take milliseconds.
[[nodiscard]] QImage keptIcon(const QImage &icon);
[[nodiscard]] QImage shownIcon(const QImage &icon);

} // namespace ostrel
