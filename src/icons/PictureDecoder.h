#pragma once

#include <QByteArray>
#include <QImage>

namespace ostrel {

/// Pictures that are wider or higher aren't decoded.
inline constexpr int largestPictureSide = 2048;
/// How large a drawing is drawn, on its longer side. One that is a pixel wide by its own account
/// stays as wide.
inline constexpr int drawnPictureSide = 128;

/// The picture in @p bytes: PNG, ICO (the largest picture in it), JPEG, GIF (the first frame),
/// WebP, BMP or SVG, told apart by their content. Null for everything else, for what is broken, and
/// where either side is over largestPictureSide, which is found out before any pixel is decoded.
///
/// Meant for untrusted input: pictures made to take a lot of time or memory are rejected, and
/// nothing but pixels is kept. Any thread but the main one, since it may take a sixth of a second.
[[nodiscard]] QImage decodePicture(const QByteArray &bytes);

} // namespace ostrel
