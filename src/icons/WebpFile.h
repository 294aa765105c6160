#pragma once

#include <QByteArray>

namespace ostrel {

[[nodiscard]] bool isWebp(QByteArrayView bytes);

/// The number of bytes of @p webp that aren't lossy pixels. Those of a lossless picture may request
/// thousands of tables, each of which takes kilobytes to build and two bytes to request.
[[nodiscard]] qsizetype losslessSize(QByteArrayView webp);

} // namespace ostrel
