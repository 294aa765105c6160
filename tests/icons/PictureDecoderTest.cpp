#include "PictureDecoder.h"

#include "IconFakes.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <QRandomGenerator>
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
    quint8 side; ///< As the directory has it; 0 stands for 256.
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

/// The one picture of an ICO file that Qt has written, which is a bitmap.
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

/// A PNG file whose header tells of another size, and whose checksums are right.
QByteArray pngClaiming(quint32 width, quint32 height)
{
    const QByteArray png = picture({16, 16});
    const QByteArray header = bigEndian(width) + bigEndian(height) + png.sliced(8 + 8 + 8, 5);
    return png.first(8) + chunk("IHDR", header) + png.sliced(pngHeaderEnd);
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

TEST(PictureDecoderTest, CompressedTextsInAPngAreNotUnfolded)
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

TEST(PictureDecoderTest, TheDirectoryOfAnIcoIsNotBelieved)
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

TEST(PictureDecoderTest, AnIcoOfManyEntriesForOnePictureIsNoBurden)
{
    // 65 535 entries, all for the same bytes, which look like a large picture and aren't.
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

} // namespace ostrel::test
