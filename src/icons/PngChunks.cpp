#include "PngChunks.h"

#include <QtEndian>

namespace ostrel {

namespace {

constexpr QByteArrayView pngSignature("\x89PNG\r\n\x1a\n", 8);
constexpr qsizetype lengthSize = 4;
constexpr qsizetype typeSize = 4;
constexpr qsizetype checksumSize = 4;

/// A critical chunk's type begins with an upper-case letter.
bool isEssential(QByteArrayView type)
{
    return (type.front() & 0x20) == 0 || type == QByteArrayView("tRNS");
}

} // namespace

bool isPng(QByteArrayView bytes)
{
    return bytes.startsWith(pngSignature);
}

QByteArray essentialChunks(const QByteArray &png)
{
    QByteArray result = pngSignature.toByteArray();
    result.reserve(png.size());
    QByteArrayView rest = QByteArrayView(png).sliced(pngSignature.size());
    while (rest.size() >= lengthSize + typeSize + checksumSize) {
        const qsizetype size =
            lengthSize + typeSize + qFromBigEndian<quint32>(rest.data()) + checksumSize;
        if (size > rest.size())
            break;
        if (isEssential(rest.sliced(lengthSize, typeSize)))
            result.append(rest.first(size));
        rest = rest.sliced(size);
    }
    return result;
}

} // namespace ostrel
