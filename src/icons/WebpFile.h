#pragma once

#include <QByteArray>

namespace ostrel {

[[nodiscard]] bool isWebp(QByteArrayView bytes);

/// How many bytes of @p webp aren't lossy pixels. Those of a lossless picture may ask for thousands
/// of tables, each of which takes kilobytes to build and two bytes to ask for.
[[nodiscard]] qsizetype losslessSize(QByteArrayView webp);

} // namespace ostrel
