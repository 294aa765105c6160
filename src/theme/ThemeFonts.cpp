#include "ThemeFonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

struct LineBox
{
    int pixelSize;
    int height;
};
constexpr std::array lineBoxes = {
    LineBox{9, 12},  LineBox{10, 13}, LineBox{11, 14}, LineBox{12, 16}, LineBox{13, 18},
    LineBox{14, 18}, LineBox{15, 20}, LineBox{22, 28}, LineBox{24, 30}, LineBox{32, 30},
};

QString sans()
{
    return u"Avenir Next"_s;
}

QString monospaced()
{
    return u"SF Mono"_s;
}

QFont fontOf(const QString &family, int weight, qreal pixelSize, qreal letterSpacing)
{
    QFont font(family);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setPixelSize(static_cast<int>(std::lround(pixelSize)));
    font.setLetterSpacing(QFont::AbsoluteSpacing, letterSpacing);
    return font;
}

/// Measured as in a layout: in whole pixels.
qreal faceHeight(const QFont &font)
{
    return std::ceil(QFontMetricsF(font).height());
}

} // namespace

void ThemeFonts::install()
{
    QFont::insertSubstitutions(sans(), {u"Lato"_s, u"Manrope"_s, u"Cantarell"_s, u"sans-serif"_s});
    QFont::insertSubstitutions(
        monospaced(), {u"JetBrains Mono"_s, u"Fira Code"_s, u"DejaVu Sans Mono"_s, u"monospace"_s});
    // Every text uses the application's font before its own is set. Otherwise the desktop's font
    // would be loaded only for that.
    QGuiApplication::setFont(face(400, 13, defaultLetterSpacing));
}

void ThemeFonts::findFaces()
{
    static_cast<void>(QFontDatabase::hasFamily(sans()));
}

QFont ThemeFonts::face(int weight, qreal pixelSize, qreal letterSpacing)
{
    return fontOf(sans(), weight, pixelSize, letterSpacing);
}

QFont ThemeFonts::mono(int weight, qreal pixelSize)
{
    QFont font = fontOf(monospaced(), weight, pixelSize, defaultLetterSpacing);
    font.setStyleHint(QFont::Monospace);
    return font;
}

QFont ThemeFonts::system(qreal pixelSize)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(static_cast<int>(std::lround(pixelSize)));
    return font;
}

qreal ThemeFonts::lineBox(qreal pixelSize)
{
    const auto *known = std::find_if(lineBoxes.begin(), lineBoxes.end(), [&](const LineBox &box) {
        return box.pixelSize == static_cast<int>(std::lround(pixelSize));
    });
    if (known != lineBoxes.end())
        return known->height;
    constexpr qreal usualRatio = 1.25;
    return std::ceil(pixelSize * usualRatio);
}

qreal ThemeFonts::halfLeading(const QFont &font)
{
    const QFontMetricsF metrics(font);
    const qreal ascent = std::round(metrics.ascent());
    const qreal baseline = (lineBox(font.pixelSize()) + ascent - std::round(metrics.descent())) / 2;
    return baseline - metrics.ascent();
}

qreal ThemeFonts::overhang(const QFont &font)
{
    return std::max(0.0, faceHeight(font) - lineBox(font.pixelSize()));
}

qreal ThemeFonts::textWidth(const QString &text, const QFont &font)
{
    return QFontMetricsF(font).horizontalAdvance(text);
}

} // namespace ostrel
