#include "ContentDecoder.h"

#include "EncodedBytes.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <vector>

namespace ostrel::test {

namespace {

struct Sizes
{
    qsizetype input;
    std::size_t output;
};

/// The decoded form of @p encoded; nothing if it's damaged or cut.
std::optional<QByteArray> decode(ContentDecoder &decoder, QByteArrayView encoded, Sizes sizes)
{
    QByteArray decoded;
    std::vector<char> output(sizes.output);
    while (!encoded.isEmpty()) {
        QByteArrayView piece = encoded.first(qMin(sizes.input, encoded.size()));
        encoded = encoded.sliced(piece.size());
        for (auto state = ContentDecoder::State::ready; state == ContentDecoder::State::ready;) {
            const auto step = decoder.decode(piece, output);
            decoded.append(output.data(), static_cast<qsizetype>(step.count));
            state = step.state;
            if (state == ContentDecoder::State::damaged)
                return std::nullopt;
        }
        EXPECT_TRUE(piece.isEmpty());
    }
    return decoder.isComplete() ? std::optional(decoded) : std::nullopt;
}

const std::vector<Sizes> &allSizes()
{
    static const std::vector<Sizes> sizes = {{1, 1},   {1, 65536}, {2, 3},        {3, 2},
                                             {7, 100}, {65536, 1}, {65536, 65536}};
    return sizes;
}

QByteArray plainText()
{
    QByteArray text;
    for (int i = 0; i < 300; ++i)
        text += "All systems operational, " + QByteArray::number(i * i) + "\n";
    return text;
}

struct Case
{
    const char *name;
    QByteArray encoding;
    QByteArray encoded;
};

void PrintTo(const Case &example, std::ostream *out)
{
    *out << example.name;
}

class ContentDecoderTest : public testing::TestWithParam<Case>
{
};

std::unique_ptr<ContentDecoder> make(const QByteArray &encoding)
{
    return ContentDecoder::make(encoding);
}

} // namespace

TEST_P(ContentDecoderTest, DecodesInPiecesOfAnySize)
{
    for (const Sizes sizes : allSizes()) {
        const auto decoder = make(GetParam().encoding);
        ASSERT_TRUE(decoder);
        EXPECT_EQ(decode(*decoder, GetParam().encoded, sizes), plainText())
            << sizes.input << " " << sizes.output;
    }
}

TEST_P(ContentDecoderTest, CutContentIsIncomplete)
{
    const QByteArray &encoded = GetParam().encoded;
    for (const qsizetype length : {qsizetype(1), encoded.size() / 2}) {
        const auto decoder = make(GetParam().encoding);
        EXPECT_EQ(decode(*decoder, encoded.left(length), {100, 100}), std::nullopt) << length;
    }
}

TEST_P(ContentDecoderTest, ContentThatIsNotEncodedIsDamaged)
{
    const auto decoder = make(GetParam().encoding);
    EXPECT_EQ(decode(*decoder, "<html>this is no such thing at all, of course</html>", {5, 100}),
              std::nullopt);
}

TEST_P(ContentDecoderTest, BytesAfterTheEndAreIgnored)
{
    for (const QByteArray &behind :
         {QByteArray(1000, '\0'), QByteArray("\x1f"), QByteArray("\x1f\x8b"),
          QByteArray("<!-- -->"), QByteArray("\x28\xb5\x2f"), QByteArray("\x28"),
          QByteArray("\x1f\x8b\x07rest")}) {
        for (const Sizes sizes : allSizes()) {
            const auto decoder = make(GetParam().encoding);
            EXPECT_EQ(decode(*decoder, GetParam().encoded + behind, sizes), plainText())
                << behind.toHex().constData();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, ContentDecoderTest,
    testing::Values(
        Case{"Gzip", "gzip", gzip(plainText())}, Case{"OldGzip", "X-GZip", gzip(plainText())},
        Case{"Deflate", "deflate", deflated(plainText())},
        Case{"DeflateWithoutItsFrame", "deflate", bareDeflated(plainText())},
        Case{"Brotli", "br", brotli(plainText())}, Case{"Zstd", "zstd", zstd(plainText())},
        Case{"WithIdentity", "identity, gzip", gzip(plainText())},
        Case{"WithEmptyNames", ", ,gzip,", gzip(plainText())},
        Case{"BrotliInGzip", "br, gzip", gzip(brotli(plainText()))},
        Case{"AllOfThem", "deflate,gzip , BR,zstd", zstd(brotli(gzip(deflated(plainText()))))},
        Case{"GzipMembers", "gzip",
             gzip(plainText().left(100)) + gzip("") + gzip(plainText().mid(100))},
        Case{"ZstdFrames", "zstd",
             zstd(plainText().left(100)) + QByteArray("\x53\x2a\x4d\x18\x03\0\0\0abc", 11) +
                 zstd(plainText().mid(100))}),
    [](const auto &each) { return std::string(each.param.name); });

TEST(ContentDecoderMakeTest, UnknownEncodingsHaveNoDecoder)
{
    for (const char *encoding :
         {"", "identity", "utf-8", "binary", "aws-chunked", "none", "7bit", "gzip, aws-chunked",
          "utf-8, gzip", "gzip;q=1", "g zip", "*", "compress", "gzip,gzip,gzip,gzip,gzip,gzip"})
        EXPECT_FALSE(make(encoding)) << encoding;
}

TEST(ContentDecoderMakeTest, ADamagedMemberIsADamagedBody)
{
    QByteArray member = gzip(plainText());
    member[member.size() / 2] = char(member.at(member.size() / 2) + 1);
    const auto decoder = make("gzip");
    EXPECT_EQ(decode(*decoder, gzip("first") + member, {100, 100}), std::nullopt);
    const auto another = make("gzip");
    EXPECT_EQ(decode(*another, gzip("first") + gzip(plainText()).left(40), {100, 100}),
              std::nullopt);
}

TEST(ContentDecoderMakeTest, ABombIsDecodedABitAtATime)
{
    const QByteArray zeros(qsizetype(8) * 1024 * 1024, '\0');
    struct
    {
        const char *encoding;
        QByteArray bomb;
    } const cases[] = {
        {"gzip", gzip(zeros)},
        {"br", brotli(zeros)},
        {"zstd", zstd(zeros)},
        // The second of its layers ends at once, and all the output of the first is skipped.
        {"gzip, br", brotli(gzip("") + zeros)},
    };
    for (const auto &c : cases) {
        const auto decoder = make(c.encoding);
        QByteArrayView input(c.bomb);
        std::vector<char> output(4096);
        int steps = 0;
        for (; steps < 100'000; ++steps) {
            const auto step = decoder->decode(input, output);
            ASSERT_NE(step.state, ContentDecoder::State::damaged);
            if (step.state == ContentDecoder::State::starved)
                break;
        }
        EXPECT_GE(steps, zeros.size() / 65536) << c.encoding;
        EXPECT_TRUE(decoder->isComplete()) << c.encoding;
    }
}

TEST(ContentDecoderMakeTest, AZstdWindowThatNoBrowserTakesIsRefused)
{
    // A frame with a window of 16 MiB.
    const QByteArray frame("\x28\xb5\x2f\xfd\x00\x70\x03\x00\x00\x61", 10);
    const auto decoder = make("zstd");
    EXPECT_EQ(decode(*decoder, frame, {100, 100}), std::nullopt);
}

} // namespace ostrel::test
