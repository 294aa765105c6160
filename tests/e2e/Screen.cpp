#include "Screen.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// The words of an X window dump's header that say where its pixels are.
enum HeaderWord { headerSize = 0, width = 4, height = 5, bytesPerLine = 12, colorCount = 19 };
constexpr qsizetype headerWords = 25;
constexpr qsizetype colorSize = 12;

bool isClose(QColor left, QColor right)
{
    return std::abs(left.red() - right.red()) <= 2 && std::abs(left.green() - right.green()) <= 2 &&
           std::abs(left.blue() - right.blue()) <= 2;
}

} // namespace

Screen::Screen(const VirtualDisplay &display)
    : m_display(display)
{
}

QImage Screen::picture() const
{
    QFile file(m_display.dumpFile());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray dump = file.readAll();
    if (dump.size() < headerWords * 4)
        return {};
    const auto word = [&](HeaderWord index) {
        return static_cast<int>(qFromBigEndian<quint32>(dump.constData() + index * 4));
    };
    const qsizetype pixels = word(headerSize) + word(colorCount) * colorSize;
    if (dump.size() < pixels + qsizetype(word(bytesPerLine)) * word(height))
        return {};
    return QImage(reinterpret_cast<const uchar *>(dump.constData()) + pixels, word(width),
                  word(height), word(bytesPerLine), QImage::Format_RGB32)
        .copy();
}

std::optional<QPoint> Screen::find(const QColor &color, int height, int enough) const
{
    const QImage seen = picture();
    QPoint sum;
    int count = 0;
    for (int y = 0; y < std::min(height, seen.height()); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            if (!isClose(seen.pixelColor(x, y), color))
                continue;
            sum += QPoint(x, y);
            ++count;
        }
    }
    return count >= enough ? std::optional(sum / count) : std::nullopt;
}

void Screen::click(QPoint point, Button button) const
{
    play({u"mousemove"_s, QString::number(point.x()), QString::number(point.y()), u"click"_s,
          QString::number(static_cast<int>(button))});
}

void Screen::press(const QStringList &keys) const
{
    play(QStringList(u"key"_s) + keys);
}

void Screen::play(const QStringList &arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, m_display.name());
    BoundProcess process;
    process.setProcessEnvironment(environment);
    process.start(u"xdotool"_s, arguments);
    process.waitForFinished();
}

} // namespace ostrel::test
