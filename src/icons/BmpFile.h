#pragma once

#include <QByteArray>
#include <QSize>

#include <optional>

namespace ostrel {

[[nodiscard]] bool isBmp(QByteArrayView bytes);

/// How wide and high the picture in @p bmp is by its header, whichever row comes first. Nothing
/// where the header isn't one that Qt reads, or tells of more pixels than the file can hold: each
/// has its bits, or, where runs are compressed, 255 of them two bytes.
[[nodiscard]] std::optional<QSize> bmpSize(QByteArrayView bmp);

} // namespace ostrel
