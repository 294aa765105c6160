#pragma once

#include <QByteArray>
#include <QImage>

namespace ostrel {

/// Pictures that are wider or higher aren't decoded.
inline constexpr int largestPictureSide = 2048;
/// The longer side of a drawing that has no pixel size of its own.
inline constexpr int drawnPictureSide = 128;

/// Decodes the picture in @p bytes: PNG, ICO (the largest picture in it), JPEG, GIF (the first
/// frame), WebP or SVG, recognised by their content. Null for everything else, for broken pictures,
/// and if either side is over largestPictureSide, which is checked before any pixel is decoded.
///
/// Meant for untrusted input: pictures made to take a lot of time or memory are rejected, and
/// nothing but pixels is kept. Any thread but the main one, since it may take a sixth of a second.
[[nodiscard]] QImage decodePicture(const QByteArray &bytes);

} // namespace ostrel
