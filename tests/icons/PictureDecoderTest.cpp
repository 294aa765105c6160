#include "PictureDecoder.h"

#include "IconFakes.h"

#include <QBuffer>
#include <QColor>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

template<typename Number>
QByteArray littleEndian(Number number)
{
    const Number stored = qToLittleEndian(number);
    return {reinterpret_cast<const char *>(&stored), sizeof stored};
}

template<typename Number>
QByteArray bigEndian(Number number)
{
    const Number stored = qToBigEndian(number);
    return {reinterpret_cast<const char *>(&stored), sizeof stored};
}

struct IcoEntry
{
    quint8 side; ///< As in the directory; 0 means 256.
    QByteArray content;
};

QByteArray icoOf(const QList<IcoEntry> &entries)
{
    QByteArray directory =
        QByteArray("\0\0\1\0", 4) + littleEndian<quint16>(quint16(entries.size()));
    QByteArray contents;
    for (const IcoEntry &entry : entries) {
        const auto offset = 6 + 16 * entries.size() + contents.size();
        directory += littleEndian(entry.side) + littleEndian(entry.side) +
                     littleEndian<quint16>(0) + littleEndian<quint16>(1) +
                     littleEndian<quint16>(32) + littleEndian(quint32(entry.content.size())) +
                     littleEndian(quint32(offset));
        contents += entry.content;
    }
    return directory + contents;
}

/// The only picture of an ICO file written by Qt, which is a bitmap.
QByteArray bitmap(int side, Qt::GlobalColor color)
{
    return picture({side, side}, "ico", color).sliced(6 + 16);
}

quint32 crc32(QByteArrayView bytes)
{
    quint32 crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xedb88320 : 0);
    }
    return ~crc;
}

QByteArray chunk(const QByteArray &type, const QByteArray &content)
{
    return bigEndian(quint32(content.size())) + type + content + bigEndian(crc32(type + content));
}

constexpr qsizetype pngHeaderEnd = 8 + 12 + 13;

/// A PNG file whose header claims the given size, with correct checksums.
QByteArray pngClaiming(quint32 width, quint32 height)
{
    const QByteArray png = picture({16, 16});
    const QByteArray header = bigEndian(width) + bigEndian(height) + png.sliced(8 + 8 + 8, 5);
    return png.first(8) + chunk("IHDR", header) + png.sliced(pngHeaderEnd);
}

QByteArray svg(const QByteArray &content)
{
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" )"
           R"(width="32" height="32">)" +
           content + "</svg>";
}

const QByteArray redSquare = R"(<rect width="32" height="32" fill="#ff0000"/>)";

QColor centerOf(const QImage &image)
{
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

bool isReddish(const QColor &color)
{
    return color.alpha() == 255 && color.red() > 240 && color.green() < 16 && color.blue() < 16;
}

class RasterFormatTest : public testing::TestWithParam<const char *>
{
};

} // namespace

TEST_P(RasterFormatTest, IsDecoded)
{
    const QImage image = decodePicture(picture({40, 30}, GetParam()));
    EXPECT_EQ(image.size(), QSize(40, 30));
    EXPECT_TRUE(isReddish(centerOf(image)));
}

TEST_P(RasterFormatTest, BrokenFilesAreSurvived)
{
    const QByteArray whole = picture({40, 30}, GetParam());
    const auto expectBounded = [](const QByteArray &broken) {
        const QImage image = decodePicture(broken);
        EXPECT_LE(image.width(), largestPictureSide);
        EXPECT_LE(image.height(), largestPictureSide);
    };
    for (qsizetype size = 0; size < whole.size(); ++size)
        expectBounded(whole.first(size));
    for (qsizetype i = 0; i < whole.size(); ++i) {
        QByteArray broken = whole;
        broken[i] = static_cast<char>(~broken[i]);
        expectBounded(broken);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, RasterFormatTest, testing::Values("png", "jpeg", "webp", "ico"),
                         [](const auto &format) { return std::string(format.param); });

TEST(PictureDecoderTest, GifIsDecoded)
{
    EXPECT_EQ(decodePicture(smallGif(47)).size(), QSize(16, 16));
}

TEST(PictureDecoderTest, TransparencyIsKept)
{
    EXPECT_EQ(centerOf(decodePicture(picture({8, 8}, "png", Qt::transparent))).alpha(), 0);
}

TEST(PictureDecoderTest, NoOtherFormatIsDecoded)
{
    const QList<QByteArray> supported = QImageWriter::supportedImageFormats();
    for (const char *format : {"bmp", "ppm", "xbm", "xpm", "pbm", "tiff", "tga", "icns"}) {
        const QByteArray file = picture({16, 16}, format);
        EXPECT_EQ(file.isEmpty(), !supported.contains(QByteArray(format))) << format;
        EXPECT_TRUE(decodePicture(file).isNull()) << format;
    }
    QByteArray cursor = picture({16, 16}, "ico");
    cursor[2] = 2;
    EXPECT_TRUE(decodePicture(cursor).isNull());
    EXPECT_TRUE(decodePicture(QByteArray()).isNull());
    EXPECT_TRUE(decodePicture(QByteArray(1000, 'x')).isNull());
    EXPECT_TRUE(decodePicture("<!DOCTYPE html><html><body>Not found</body></html>").isNull());
}

TEST(PictureDecoderTest, TheLargestSideIsTheLimit)
{
    for (const char *format : {"png", "jpeg", "webp"}) {
        EXPECT_EQ(decodePicture(picture({2048, 4}, format)).size(), QSize(2048, 4)) << format;
        EXPECT_TRUE(decodePicture(picture({2049, 4}, format)).isNull()) << format;
        EXPECT_TRUE(decodePicture(picture({4, 2049}, format)).isNull()) << format;
    }
}

TEST(PictureDecoderTest, TheLimitHoldsForTheCanvasOfAGifAndForItsFrame)
{
    constexpr qsizetype canvasWidth = 6;
    constexpr qsizetype frameWidth = 13 + 6 + 5;
    for (const qsizetype field : {canvasWidth, frameWidth}) {
        QByteArray gif = smallGif(47);
        ASSERT_EQ(qFromLittleEndian<quint16>(gif.constData() + field), 16);
        qToLittleEndian<quint16>(2049, gif.data() + field);
        EXPECT_LE(decodePicture(gif).width(), 16) << field;
    }
}

TEST(PictureDecoderTest, APngThatClaimsAHugeSizeIsRefused)
{
    EXPECT_EQ(decodePicture(pngClaiming(16, 16)).size(), QSize(16, 16));
    EXPECT_TRUE(decodePicture(pngClaiming(60000, 60000)).isNull());
    EXPECT_TRUE(decodePicture(pngClaiming(0x7fffffff, 1)).isNull());
    EXPECT_TRUE(decodePicture(pngClaiming(0, 16)).isNull());
}

TEST(PictureDecoderTest, CompressedTextsInAPngAreNotDecompressed)
{
    const QByteArray png = picture({16, 16});
    const QByteArray text =
        QByteArray("Comment\0\0", 9) + qCompress(QByteArray(4'194'304, 'x'), 9).sliced(4);
    const QByteArray bomb = png.first(pngHeaderEnd) + chunk("zTXt", text).repeated(200) +
                            chunk("tEXt", QByteArray("Author\0me", 9)) + png.sliced(pngHeaderEnd);
    const QImage image = decodePicture(bomb);
    EXPECT_EQ(image.size(), QSize(16, 16));
    EXPECT_TRUE(image.textKeys().isEmpty());
}

TEST(PictureDecoderTest, APngWhoseChunksRunOverItsEndIsSurvived)
{
    QByteArray png = picture({16, 16});
    qToBigEndian<quint32>(0xffffffff, png.data() + pngHeaderEnd);
    EXPECT_TRUE(decodePicture(png).isNull());
}

TEST(PictureDecoderTest, AJpegOfManyScansIsRefused)
{
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    ASSERT_TRUE(writer.write(image));
    EXPECT_TRUE(isReddish(centerOf(decodePicture(jpeg))));

    const auto lastScan = jpeg.lastIndexOf(QByteArray("\xff\xda"));
    ASSERT_GT(lastScan, 0);
    const qsizetype endOfImage = 2;
    const QByteArray scan = jpeg.sliced(lastScan, jpeg.size() - lastScan - endOfImage);
    const auto withScans = [&](qsizetype count) {
        const qsizetype others = jpeg.count("\xff\xda") - 1;
        return jpeg.first(lastScan) + scan.repeated(count - others) + jpeg.last(endOfImage);
    };
    EXPECT_FALSE(decodePicture(withScans(24)).isNull());
    EXPECT_TRUE(decodePicture(withScans(25)).isNull());
}

TEST(PictureDecoderTest, ALargeWebpOfManyLosslessBytesIsRefused)
{
    const auto noise = [](int side) {
        QImage image(side, side, QImage::Format_RGB32);
        QRandomGenerator random(1);
        random.fillRange(reinterpret_cast<quint32 *>(image.bits()), image.sizeInBytes() / 4);
        return image;
    };
    const auto webp = [](const QImage &image, int quality) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "webp", quality);
        return bytes;
    };
    constexpr int lossless = 100;
    constexpr int lossy = 50;
    EXPECT_FALSE(decodePicture(webp(noise(512), lossless)).isNull());
    EXPECT_TRUE(decodePicture(webp(noise(513), lossless)).isNull());
    EXPECT_FALSE(decodePicture(webp(noise(513), lossy)).isNull());
    EXPECT_FALSE(decodePicture(picture({2048, 2048}, "webp")).isNull()) << "of a few bytes";
}

TEST(PictureDecoderTest, TheLargestPictureOfAnIcoIsTaken)
{
    const QByteArray ico = icoOf({{16, bitmap(16, Qt::green)},
                                  {64, picture({64, 64}, "png", Qt::red)},
                                  {32, picture({32, 32}, "png", Qt::blue)}});
    EXPECT_EQ(decodePicture(ico).size(), QSize(64, 64));
    EXPECT_TRUE(isReddish(centerOf(decodePicture(ico))));
}

TEST(PictureDecoderTest, ABitmapInAnIcoMayBeTheLargest)
{
    const QByteArray ico = icoOf({{16, picture({16, 16}, "png", Qt::blue)},
                                  {48, bitmap(48, Qt::red)},
                                  {32, bitmap(32, Qt::green)}});
    EXPECT_EQ(decodePicture(ico).size(), QSize(48, 48));
    EXPECT_TRUE(isReddish(centerOf(decodePicture(ico))));
}

TEST(PictureDecoderTest, TwoHundredFiftySixPixelsInAnIcoAreZeroInItsDirectory)
{
    EXPECT_EQ(decodePicture(icoOf({{0, bitmap(256, Qt::red)}})).size(), QSize(256, 256));
    EXPECT_EQ(decodePicture(icoOf({{0, picture({256, 256})}})).size(), QSize(256, 256));
}

TEST(PictureDecoderTest, TheDirectoryOfAnIcoIsNotTrusted)
{
    const QByteArray ico =
        icoOf({{255, picture({16, 16}, "png", Qt::blue)}, {8, picture({32, 32}, "png", Qt::red)}});
    EXPECT_EQ(decodePicture(ico).size(), QSize(32, 32));
}

TEST(PictureDecoderTest, AnIcoCannotHideAHugePicture)
{
    EXPECT_TRUE(decodePicture(icoOf({{16, pngClaiming(60000, 60000)}})).isNull());
    EXPECT_EQ(
        decodePicture(icoOf({{16, pngClaiming(60000, 60000)}, {16, picture({16, 16})}})).size(),
        QSize(16, 16));

    QByteArray lyingBitmap = bitmap(16, Qt::red);
    qToLittleEndian<quint32>(60000, lyingBitmap.data() + 4);
    qToLittleEndian<quint32>(120000, lyingBitmap.data() + 8);
    EXPECT_TRUE(decodePicture(icoOf({{0, lyingBitmap}})).isNull());
}

TEST(PictureDecoderTest, AnIcoOfManyEntriesForOnePictureIsRejectedQuickly)
{
    // 65 535 entries, all for the same bytes, which look like a large picture but aren't one.
    const quint32 contentSize = 512 * 1024;
    const quint32 offset = 6 + 16 * 65535;
    QByteArray ico = QByteArray("\0\0\1\0\xff\xff", 6);
    for (int i = 0; i < 65535; ++i)
        ico += QByteArray(8, '\0') + littleEndian(contentSize) + littleEndian(offset);
    ico += pngClaiming(2048, 2048).leftJustified(contentSize, 'x');
    EXPECT_TRUE(decodePicture(ico).isNull());
}

TEST(PictureDecoderTest, AnIcoCannotHaveManyLargePicturesTried)
{
    QByteArray broken = picture({600, 600}, "png", Qt::blue);
    broken[broken.size() - 20] = static_cast<char>(~broken[broken.size() - 20]);
    ASSERT_TRUE(decodePicture(broken).isNull());
    const IcoEntry large{0, broken};
    const IcoEntry fitting{0, picture({512, 512}, "png", Qt::red)};
    const IcoEntry small{16, picture({16, 16}, "png", Qt::green)};
    EXPECT_EQ(decodePicture(icoOf({large, fitting})).size(), QSize(512, 512));
    EXPECT_EQ(decodePicture(icoOf({large, {0, picture({513, 512})}, small})).size(), QSize(16, 16));
    EXPECT_EQ(decodePicture(icoOf({large, large, small})).size(), QSize(16, 16));
}

TEST(PictureDecoderTest, AnIcoThatPointsOutsideItselfIsSurvived)
{
    QByteArray ico = icoOf({{16, picture({16, 16})}});
    for (const quint32 offset : {0U, 5U, 22U + 1U, 0x7fffffffU, 0xffffffffU}) {
        qToLittleEndian(offset, ico.data() + 18);
        EXPECT_TRUE(decodePicture(ico).isNull()) << offset;
    }
    EXPECT_TRUE(decodePicture(QByteArray("\0\0\1\0", 4)).isNull());
    EXPECT_TRUE(decodePicture(QByteArray("\0\0\1\0\0\0", 6)).isNull());
    EXPECT_TRUE(decodePicture(QByteArray("\0\0\1\0\xff\xff", 6)).isNull());
}

TEST(SvgTest, IsDrawnAtASizeThatSuits)
{
    const QImage image = decodePicture(svg(redSquare));
    EXPECT_EQ(image.size(), QSize(128, 128));
    EXPECT_TRUE(isReddish(centerOf(image)));
    EXPECT_EQ(
        decodePicture(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 60000 30000"/>)")
            .size(),
        QSize(128, 64));
}

TEST(SvgTest, APrologueBeforeTheRootIsSkipped)
{
    const QByteArray prologue = "\xef\xbb\xbf<?xml version=\"1.0\"?>\n<!-- made by hand -->\n"
                                "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" "
                                "\"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">\n";
    EXPECT_TRUE(isReddish(centerOf(decodePicture(prologue + svg(redSquare)))));
}

TEST(SvgTest, GradientsClassesAndForeignElementsAreAccepted)
{
    EXPECT_TRUE(isReddish(centerOf(decodePicture(svg(
        R"(<title>T</title><metadata><x:y xmlns:x="urn:x"><image/></x:y></metadata>)"
        R"(<style>.a{fill:#ff0000}</style><g class="a"><rect width="32" height="32"/></g>)")))));
    EXPECT_TRUE(isReddish(centerOf(decodePicture(svg(
        R"(<defs><linearGradient id="a"><stop offset="0" stop-color="#ff0000"/></linearGradient>)"
        R"(<linearGradient id="b" xlink:href="#a"/></defs>)"
        "<rect width='32' height='32' fill='url(#b)'/>")))));
}

TEST(SvgTest, ATrackingPixelIsNotEnlarged)
{
    EXPECT_EQ(
        decodePicture(R"(<svg xmlns="http://www.w3.org/2000/svg" width="1" height="1"/>)").size(),
        QSize(1, 1));
}

namespace {

class HostileSvgTest : public testing::Test
{
protected:
    HostileSvgTest()
    {
        QFile file(picturePath);
        if (file.open(QIODevice::WriteOnly))
            file.write(picture({32, 32}, "png", Qt::blue));
        QFile sheet(sheetPath);
        if (sheet.open(QIODevice::WriteOnly))
            sheet.write("rect{fill:#0000ff}");
    }

    QTemporaryDir folder;
    QString picturePath = folder.filePath(u"secret.png"_s);
    QString sheetPath = folder.filePath(u"secret.css"_s);
};

QByteArray nested(int levels)
{
    return svg(QByteArray("<g>").repeated(levels) + redSquare +
               QByteArray("</g>").repeated(levels));
}

} // namespace

TEST_F(HostileSvgTest, PicturesAreNotLoaded)
{
    for (const QString &address : {picturePath, u"file://"_s + picturePath,
                                   u"https://example.org/a.png"_s, u"data:image/png;base64,AA"_s}) {
        const QByteArray image =
            "<image width='32' height='32' xlink:href='" + address.toUtf8() + "'/>";
        EXPECT_TRUE(decodePicture(svg(redSquare + image)).isNull()) << qPrintable(address);
    }
    EXPECT_TRUE(decodePicture(svg("<x:image xmlns:x='urn:x' width='32' height='32' xlink:href='" +
                                  picturePath.toUtf8() + "'/>" + redSquare))
                    .pixelColor(64, 64) == QColor(Qt::red))
        << "an element of another vocabulary is left out";
}

TEST_F(HostileSvgTest, StyleSheetsAreNotLoaded)
{
    const QByteArray sheet = sheetPath.toUtf8();
    const QByteArray plain = "<rect width='32' height='32' fill='#ff0000'/>";
    const QImage image =
        decodePicture("<?xml-stylesheet type='text/css' href='" + sheet + "'?>" + svg(plain));
    EXPECT_TRUE(isReddish(centerOf(image)));
    EXPECT_TRUE(
        decodePicture(svg("<style>@import url('" + sheet + "');</style>" + plain)).isNull());
}

TEST_F(HostileSvgTest, EntitiesAreRefused)
{
    const QByteArray external = "<!DOCTYPE svg [<!ENTITY e SYSTEM '" + sheetPath.toUtf8() + "'>]>";
    EXPECT_TRUE(decodePicture(external + svg("<title>&e;</title>" + redSquare)).isNull());

    QByteArray bomb = "<!DOCTYPE svg [<!ENTITY a0 'x'>";
    for (int i = 1; i < 40; ++i) {
        const QByteArray last = "&a" + QByteArray::number(i - 1) + ";";
        bomb += "<!ENTITY a" + QByteArray::number(i) + " '" + last + last + "'>";
    }
    EXPECT_TRUE(decodePicture(bomb + "]>" + svg("<title>&a39;</title>" + redSquare)).isNull());
}

TEST_F(HostileSvgTest, ContentThatCanMultiplyOrMoveIsRefused)
{
    for (const char *element :
         {"<use xlink:href='#a'/>", "<text>A</text>", "<script>1</script>", "<foreignObject/>",
          "<animate attributeName='x' dur='1s'/>", "<set attributeName='x'/>", "<filter id='f'/>",
          "<pattern id='p'/>", "<mask id='m'/>", "<svg/>", "<video/>", "<font/>", "<a/>",
          "<rect width='9' height='9' stroke='red' stroke-dasharray='0.0001'/>",
          "<rect width='9' height='9' style='stroke:red;stroke-DASHarray:0.0001'/>",
          "<style>rect{stroke-d\\61 sharray:0.0001}</style>",
          "<style>rect{stroke-dasharray:0.0001}</style>"})
        EXPECT_TRUE(decodePicture(svg(QByteArray(redSquare) + element)).isNull()) << element;
}

TEST_F(HostileSvgTest, SizeDepthAndNumberAreBounded)
{
    EXPECT_FALSE(decodePicture(nested(30)).isNull());
    EXPECT_TRUE(decodePicture(nested(31)).isNull());
    EXPECT_TRUE(decodePicture(nested(50000)).isNull());

    EXPECT_FALSE(decodePicture(svg(QByteArray("<g/>").repeated(4095))).isNull());
    EXPECT_TRUE(decodePicture(svg(QByteArray("<g/>").repeated(4096))).isNull());

    const QByteArray drawing = svg(redSquare);
    const QByteArray fitting = drawing.leftJustified(262'144, ' ');
    EXPECT_FALSE(decodePicture(fitting).isNull());
    EXPECT_TRUE(decodePicture(fitting + ' ').isNull());

    EXPECT_FALSE(decodePicture(svg("<style>" + QByteArray(4096, ' ') + "</style>")).isNull());
    EXPECT_TRUE(decodePicture(svg("<style>" + QByteArray(4097, ' ') + "</style>")).isNull());
}

TEST_F(HostileSvgTest, DrawingsThatWouldTakeMinutesAreRefused)
{
    const auto path = [](const QByteArray &segment, int count) {
        return "<path stroke='#000' stroke-width='2' d='M0 0" + segment.repeated(count) + "'/>";
    };
    EXPECT_FALSE(decodePicture(svg(path("C9 1 -9 8 31 31", 500))).isNull());
    EXPECT_FALSE(decodePicture(svg(path("C9e5 1 -9e5 8 31 31", 0))).isNull());

    EXPECT_TRUE(decodePicture(svg(path("C9e5 1 -9e5 8 31 31", 10000))).isNull());
    EXPECT_TRUE(
        decodePicture(svg("<g transform='scale(1e5)'>" + path("C9 1 -9 8 31 31", 500) + "</g>"))
            .isNull());
    EXPECT_TRUE(decodePicture("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 1e-3 1e-3'>" +
                              path("C9 1 -9 8 31 31", 500) + "</svg>")
                    .isNull());
    EXPECT_TRUE(decodePicture(svg("<circle r='9' stroke='#000' stroke-width='30000'/>")).isNull());
    EXPECT_TRUE(decodePicture(svg("<polygon points='0 0 1e9 0 0 1e9'/>")).isNull());
    EXPECT_TRUE(decodePicture(svg("<line x2='1e9' y2='1e9' stroke='#000'/>")).isNull());
}

TEST_F(HostileSvgTest, AttributesAreBounded)
{
    const auto attributes = [](int count) {
        QByteArray list;
        for (int i = 0; i < count; ++i)
            list += " a" + QByteArray::number(i) + "=''";
        return list;
    };
    const auto rect = [&](const QByteArray &more) {
        return svg(QByteArray("<rect width='32' height='32'") + more + "/>");
    };
    EXPECT_FALSE(decodePicture(rect(attributes(62))).isNull());
    EXPECT_TRUE(decodePicture(rect(attributes(63))).isNull());
    EXPECT_TRUE(decodePicture(rect(attributes(22000))).isNull());
    EXPECT_FALSE(decodePicture(svg(("<g" + attributes(60) + "/>").repeated(100))).isNull())
        << "each element has its own";
    EXPECT_FALSE(decodePicture(svg("<!--" + QByteArray(80, '=') + "-->")).isNull());
    EXPECT_TRUE(decodePicture(svg("<title><b" + attributes(65) + "/></title>")).isNull())
        << "also in what is left out";
    EXPECT_TRUE(decodePicture("<!DOCTYPE svg [<!ATTLIST g a CDATA 'x'>]>" + svg("<g/>")).isNull())
        << "each element would have them";
}

TEST_F(HostileSvgTest, SelectorMatchingIsBounded)
{
    const auto drawing = [](int conditions, int elements, const QByteArray &classes) {
        return svg("<style>" + QByteArray("g{}").repeated(conditions) + "</style>" +
                   ("<g class='" + classes + "'/>").repeated(elements));
    };
    EXPECT_FALSE(decodePicture(drawing(100, 4000, "a")).isNull());
    EXPECT_TRUE(decodePicture(drawing(120, 4000, "a")).isNull());
    EXPECT_FALSE(decodePicture(drawing(1300, 200, "a")).isNull());
    EXPECT_TRUE(decodePicture(drawing(1300, 400, "a")).isNull());
    EXPECT_TRUE(decodePicture(drawing(1300, 1, QByteArray("a ").repeated(5000))).isNull());
    EXPECT_TRUE(decodePicture(svg("<style>" + QByteArray(".a").repeated(1000) + "{}</style>" +
                                  QByteArray("<g class='a'/>").repeated(1000)))
                    .isNull());
    EXPECT_TRUE(decodePicture(svg("<style>g~g{}</style><g/><g/>")).isNull());
}

TEST_F(HostileSvgTest, StrokesCountForMoreThanFills)
{
    const auto zigzag = [](const QByteArray &attributes, int points) {
        QByteArray path = "<path " + attributes + " d='M0 0";
        for (int i = 0; i < points; ++i)
            path += (i % 2 == 0 ? "L31 " : "L0 ") + QByteArray::number(i % 31);
        return svg(path + "'/>");
    };
    EXPECT_FALSE(decodePicture(zigzag("", 10000)).isNull());
    EXPECT_FALSE(decodePicture(zigzag("stroke='#000'", 1000)).isNull());
    EXPECT_TRUE(decodePicture(zigzag("stroke='#000'", 7000)).isNull());
}

TEST_F(HostileSvgTest, BrokenDrawingsAreRefused)
{
    const QByteArray drawing = svg(redSquare);
    EXPECT_TRUE(decodePicture(drawing.chopped(1)).isNull());
    EXPECT_TRUE(decodePicture(drawing + drawing).isNull());
    EXPECT_TRUE(decodePicture("<svg").isNull());
    EXPECT_TRUE(decodePicture("<").isNull());
    EXPECT_TRUE(decodePicture("<rect/>").isNull());
    EXPECT_TRUE(decodePicture(R"(<svg xmlns="http://www.w3.org/2000/svg" width="0" height="9"/>)")
                    .isNull());
}

} // namespace ostrel::test
