#include "WebpFile.h"

#include <QtEndian>

namespace ostrel {

namespace {

constexpr qsizetype fileHeaderSize = 12;
constexpr qsizetype chunkHeaderSize = 8;

} // namespace

bool isWebp(QByteArrayView bytes)
{
    return bytes.startsWith("RIFF") && bytes.sliced(4).indexOf("WEBP") == 4;
}

qsizetype losslessSize(QByteArrayView webp)
{
    qsizetype lossy = 0;
    qsizetype at = fileHeaderSize;
    while (webp.size() - at > chunkHeaderSize) {
        const QByteArrayView header = webp.sliced(at, chunkHeaderSize);
        const qsizetype size = qFromLittleEndian<quint32>(header.data() + 4);
        at += chunkHeaderSize;
        if (size > webp.size() - at)
            break;
        lossy += header.startsWith("VP8 ") ? size : 0;
        at += size + size % 2;
    }
    return webp.size() - lossy;
}

} // namespace ostrel
