#pragma once

#include <QByteArray>

namespace ostrel {

[[nodiscard]] bool isPng(QByteArrayView bytes);

/// @p png, one PNG file, with nothing in it but what its pixels need: the critical chunks and
/// transparency. Texts and profiles, which are compressed and may unfold to any size, are gone.
/// Ends where the file's structure does.
[[nodiscard]] QByteArray essentialChunks(const QByteArray &png);

} // namespace ostrel
