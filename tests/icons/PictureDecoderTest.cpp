#include "PictureDecoder.h"

#include "IconFakes.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <QRandomGenerator>
#include <QtEndian>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

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

QByteArray bmpOf(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "bmp");
    return bytes;
}

/// @p bmp with a header that tells of another size.
QByteArray bmpClaiming(QByteArray bmp, qint32 width, qint32 height)
{
    qToLittleEndian(width, bmp.data() + 18);
    qToLittleEndian(height, bmp.data() + 22);
    return bmp;
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

INSTANTIATE_TEST_SUITE_P(Formats, RasterFormatTest,
                         testing::Values("png", "jpeg", "webp", "ico", "bmp"),
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
    for (const char *format : {"ppm", "xbm", "xpm", "pbm", "tiff", "tga", "icns"}) {
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
    for (const char *format : {"png", "jpeg", "webp", "bmp"}) {
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

TEST(PictureDecoderTest, ABitmapMayHaveEveryDepth)
{
    for (const auto format : {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32}) {
        QImage image(40, 30, format);
        if (format != QImage::Format_RGB32)
            image.setColorTable({qRgb(255, 0, 0), qRgb(0, 0, 255)});
        image.fill(format == QImage::Format_RGB32 ? qRgb(255, 0, 0) : 0);
        EXPECT_TRUE(isReddish(centerOf(decodePicture(bmpOf(image))))) << format;
    }
}

TEST(PictureDecoderTest, ABitmapMayBeginWithItsTopmostRow)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::blue);
    for (int x = 0; x < image.width(); ++x)
        image.setPixelColor(x, 0, Qt::red);
    const QByteArray bmp = bmpOf(image);
    EXPECT_EQ(decodePicture(bmp).pixelColor(20, 0), QColor(Qt::red));

    const QImage flipped = decodePicture(bmpClaiming(bmp, 40, -30));
    EXPECT_EQ(flipped.size(), QSize(40, 30));
    EXPECT_EQ(flipped.pixelColor(20, 29), QColor(Qt::red));
}

TEST(PictureDecoderTest, ABitmapThatClaimsMorePixelsThanItHoldsIsRefused)
{
    const QByteArray bmp = picture({40, 30}, "bmp");
    EXPECT_EQ(decodePicture(bmpClaiming(bmp, 40, 30)).size(), QSize(40, 30));
    EXPECT_EQ(decodePicture(bmpClaiming(bmp, 40, 29)).size(), QSize(40, 29));
    constexpr auto lowest = std::numeric_limits<qint32>::min();
    constexpr auto highest = std::numeric_limits<qint32>::max();
    for (const qint32 height : {31, -31, 2048, -2048, 60000, highest, lowest, 0})
        EXPECT_TRUE(decodePicture(bmpClaiming(bmp, 40, height)).isNull()) << height;
    for (const qint32 width : {42, 2048, 60000, highest, lowest, 0, -40})
        EXPECT_TRUE(decodePicture(bmpClaiming(bmp, width, 30)).isNull()) << width;
}

TEST(PictureDecoderTest, ABitmapsHeaderIsNotBelievedWithoutProof)
{
    const QByteArray bmp = picture({40, 30}, "bmp");
    constexpr qsizetype pixelsOffset = 10;
    constexpr qsizetype headerSize = 14;
    constexpr qsizetype depth = 28;
    constexpr qsizetype compression = 30;
    const auto with = [&](qsizetype offset, qsizetype value) {
        QByteArray changed = bmp;
        qToLittleEndian(static_cast<quint16>(value), changed.data() + offset);
        return decodePicture(changed);
    };
    for (const qsizetype offset : {qsizetype(55), bmp.size(), qsizetype(0xffff)})
        EXPECT_TRUE(with(pixelsOffset, offset).isNull()) << offset;
    for (const int size : {0, 16, 39, 41, 52, 56, 1000})
        EXPECT_TRUE(with(headerSize, size).isNull()) << size;
    for (const int bits : {0, 2, 32, 64, 0xffff})
        EXPECT_TRUE(with(depth, bits).isNull()) << bits;
    for (const int kind : {1, 2, 4, 5, 99})
        EXPECT_TRUE(with(compression, kind).isNull()) << kind;
    for (const qsizetype end : {0, 2, 13, 14, 17, 18, 25, 33, 53})
        EXPECT_TRUE(decodePicture(bmp.first(end)).isNull()) << end;
}

TEST(PictureDecoderTest, AColourThatAPaletteLacksIsNone)
{
    for (const auto &[format, colors] :
         {std::pair(QImage::Format_Indexed8, 256), {QImage::Format_Mono, 2}}) {
        QImage image(40, 30, format);
        image.setColorTable(QList<QRgb>(colors, qRgb(0, 0, 255)));
        image.setColor(0, qRgb(255, 0, 0));
        image.fill(0);
        image.setPixel(20, 15, static_cast<uint>(colors - 1));
        const QByteArray bmp = bmpOf(image);
        ASSERT_EQ(decodePicture(bmp).pixelColor(20, 15), QColor(Qt::blue));

        constexpr qsizetype pixelsOffset = 10;
        constexpr qsizetype colorCount = 46;
        constexpr qsizetype palette = 14 + 40;
        QByteArray oneColor = bmp.first(palette + 4) + bmp.sliced(palette + 4 * colors);
        qToLittleEndian<quint32>(palette + 4, oneColor.data() + pixelsOffset);
        qToLittleEndian<quint32>(1, oneColor.data() + colorCount);
        EXPECT_EQ(decodePicture(oneColor).pixelColor(0, 0), QColor(Qt::red)) << format;
        EXPECT_EQ(decodePicture(oneColor).pixelColor(20, 15).alpha(), 0) << format;
    }
}

TEST(PictureDecoderTest, ARunLengthBitmapHoldsItsRuns)
{
    // One run for each row of 200 pixels, all of the palette's second colour.
    const auto compressed = [](qint32 height, int rows) {
        const QByteArray palette =
            littleEndian<quint32>(0xff0000ff) + littleEndian<quint32>(0xffff0000);
        const QByteArray pixels =
            QByteArray("\xc8\x01\0\0", 4).repeated(rows) + QByteArray("\0\1", 2);
        return "BM" + littleEndian<quint32>(0) + littleEndian<quint32>(0) +
               littleEndian<quint32>(14 + 40 + 8) + littleEndian<quint32>(40) +
               littleEndian<qint32>(200) + littleEndian(height) + littleEndian<quint16>(1) +
               littleEndian<quint16>(8) + littleEndian<quint32>(1) + QByteArray(12, '\0') +
               littleEndian<quint32>(2) + littleEndian<quint32>(0) + palette + pixels;
    };
    const QImage image = decodePicture(compressed(100, 100));
    EXPECT_EQ(image.size(), QSize(200, 100));
    EXPECT_TRUE(isReddish(centerOf(image)));
    EXPECT_TRUE(decodePicture(compressed(2048, 100)).isNull());
    EXPECT_TRUE(decodePicture(compressed(2049, 2049)).isNull());
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

TEST(PictureDecoderTest, APngInAnIcoThatEndsInItsHeadIsSkipped)
{
    const QByteArray whole = picture({16, 16}, "png", Qt::red);
    for (const qsizetype size : {8, 16, 24, 25})
        EXPECT_TRUE(decodePicture(icoOf({{16, whole.first(size)}})).isNull()) << size;
    const QByteArray ico = icoOf({{32, whole.first(20)}, {16, whole}});
    EXPECT_EQ(decodePicture(ico).size(), QSize(16, 16));
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

} // namespace ostrel::test
