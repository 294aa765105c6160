#pragma once

#include <QByteArray>

namespace ostrel {

[[nodiscard]] bool isPng(QByteArrayView bytes);

/// @p png, one PNG file, reduced to what its pixels need: the critical chunks and transparency.
/// Removes texts and profiles, which are compressed and may inflate to any size. Ends where the
/// file's structure does.
[[nodiscard]] QByteArray essentialChunks(const QByteArray &png);

} // namespace ostrel
