#pragma once

#include <QByteArray>
#include <QList>

namespace ostrel {

[[nodiscard]] bool isIco(QByteArrayView bytes);

/// The pictures in an ICO file, each a file of its own: PNG where it is stored so, else an ICO with
/// this one picture, at most 256 pixels on a side. The largest comes first, by the sizes that the
/// pictures themselves have, whatever the directory says; of equally large ones that with more
/// colours. At most eight, of which those after the first have no more pixels together than one of
/// 512 by 512; broken ones and those over largestPictureSide are left out.
[[nodiscard]] QList<QByteArray> picturesInIco(const QByteArray &ico);

} // namespace ostrel
