#pragma once

#include <QByteArray>
#include <QList>

namespace ostrel {

[[nodiscard]] bool isIco(QByteArrayView bytes);

/// The pictures in an ICO file, each as a file of its own: PNG if it is stored so, else an ICO with
/// this one picture, at most 256 pixels on a side. The largest comes first, by the sizes in the
/// pictures themselves, whatever the directory says; of equally large ones the one with more
/// colours. At most eight, of which those after the first have together no more pixels than one of
/// 512 by 512; broken ones and those over largestPictureSide are left out.
[[nodiscard]] QList<QByteArray> picturesInIco(const QByteArray &ico);

} // namespace ostrel
