#pragma once

#include <QByteArray>
#include <QSize>

#include <optional>

namespace ostrel {

[[nodiscard]] bool isBmp(QByteArrayView bytes);

/// The size of the picture in @p bmp by its header, for either order of the rows. Nullopt if Qt
/// doesn't read such a header, or if it claims more pixels than the file can hold: each takes its
/// bits or, if runs are compressed, 255 of them take two bytes.
[[nodiscard]] std::optional<QSize> bmpSize(QByteArrayView bmp);

} // namespace ostrel
