#include "EncodedBytes.h"
#include "FetchFixture.h"
#include "HostileBehaviours.h"
#include "NotingReader.h"
#include "Printers.h"

#include <ostream>

namespace ostrel::test {

namespace {

struct Encoded
{
    const char *name;
    QByteArray encoding;
    QByteArray body;
    QByteArray decoded;
};

void PrintTo(const Encoded &example, std::ostream *out)
{
    *out << example.name;
}

class EncodedBodyTest : public FetchFixture, public testing::WithParamInterface<Encoded>
{
};

class DamagedBodyTest : public FetchFixture, public testing::WithParamInterface<Encoded>
{
};

} // namespace

TEST_P(EncodedBodyTest, IsReadAndKeptAsBrowsersDecodeIt)
{
    const HostileServer server(answerEncoded(GetParam().encoding, GetParam().body));
    const auto reader = std::make_shared<NotingReader>();
    HttpRequest request = requestFor(server.url());
    request.bodyReader = reader;
    const HttpResult read = fetch(request);
    EXPECT_EQ(read.statusCode, 200) << read.error.toStdString();
    EXPECT_TRUE(read.isBodyRead);
    EXPECT_EQ(reader->bodies, 1);
    EXPECT_EQ(reader->text, GetParam().decoded);

    const HttpResult kept = fetch(server.url());
    EXPECT_EQ(kept.body, GetParam().decoded);
    EXPECT_FALSE(kept.isBodyTruncated);
    EXPECT_FALSE(kept.isBodyRead) << "nobody has read it";
}

INSTANTIATE_TEST_SUITE_P(
    All, EncodedBodyTest,
    testing::Values(Encoded{"Utf8IsNone", "utf-8", "as it is", "as it is"},
                    Encoded{"BinaryIsNone", "binary", "as it is", "as it is"},
                    Encoded{"AwsChunkedIsNone", "aws-chunked", "as it is", "as it is"},
                    Encoded{"AnyToken", "x-whatever", "as it is", "as it is"},
                    Encoded{"Seven", "a,b,c,d,e,f,g", "as it is", "as it is"},
                    Encoded{"Identity", "identity", "as it is", "as it is"},
                    Encoded{"Gzip", "gzip", gzip("a page"), "a page"},
                    Encoded{"TwoMembers", "gzip", gzip("a ") + gzip("page"), "a page"},
                    Encoded{"BytesBehind", "gzip", gzip("a page") + "\n<!-- 0.1 s -->", "a page"},
                    Encoded{"Brotli", "br", brotli("a page"), "a page"},
                    Encoded{"Zstd", "zstd", zstd("a page"), "a page"},
                    Encoded{"Deflate", "deflate", deflated("a page"), "a page"},
                    Encoded{"BareDeflate", "deflate", bareDeflated("a page"), "a page"},
                    Encoded{"TwoLines", "br\r\nContent-Encoding: gzip", gzip(brotli("a page")),
                            "a page"},
                    Encoded{"Empty", "gzip", "", ""}),
    [](const auto &each) { return std::string(each.param.name); });

TEST_P(DamagedBodyTest, CountsAsNotReadAndTheStatusIsKept)
{
    const HostileServer server(answerEncoded(GetParam().encoding, GetParam().body));
    HttpRequest request = requestFor(server.url());
    request.bodyReader = std::make_shared<NotingReader>();
    const HttpResult read = fetch(request);
    EXPECT_TRUE(read.hasResponse) << read.error.toStdString();
    EXPECT_EQ(read.statusCode, 200);
    EXPECT_FALSE(read.isBodyRead);

    EXPECT_TRUE(fetch(server.url()).isBodyTruncated);

    request.bodyReader = nullptr;
    request.bodyLimit = 0;
    EXPECT_TRUE(fetch(request).hasResponse) << "nobody wants it decoded";
}

INSTANTIATE_TEST_SUITE_P(
    All, DamagedBodyTest,
    testing::Values(Encoded{"NoGzip", "gzip", "a page", {}},
                    Encoded{"CutGzip", "gzip", gzip("a page").chopped(10), {}},
                    Encoded{"NoBrotli", "br", "\xff\xff\xff", {}},
                    Encoded{"CutBrotli", "br", brotli("a page").chopped(1), {}},
                    Encoded{"NoZstd", "zstd", "a page", {}},
                    Encoded{"CutZstd", "zstd", zstd("a page").chopped(1), {}},
                    Encoded{"CutDeflate", "deflate", deflated("a page").chopped(6), {}}),
    [](const auto &each) { return std::string(each.param.name); });

class BodyOfNothingTest : public FetchFixture
{
};

TEST_F(BodyOfNothingTest, CountsAsReadWhateverItsHeadersSay)
{
    struct
    {
        const char *method;
        const char *status;
    } const cases[] = {{"HEAD", "200 OK"}, {"GET", "204 No Content"}, {"GET", "304 Not Modified"}};
    for (const auto &c : cases) {
        const HostileServer server([&](HostileConnection &connection, const SeenRequest &) {
            connection.send(QByteArray("HTTP/1.1 ") + c.status +
                            "\r\nContent-Encoding: gzip\r\nContent-Length: 100\r\n\r\n");
        });
        const auto reader = std::make_shared<NotingReader>();
        HttpRequest request = requestFor(server.url(), c.method);
        request.bodyReader = reader;
        const HttpResult result = fetch(request);
        EXPECT_TRUE(result.hasResponse) << c.status << result.error.toStdString();
        EXPECT_TRUE(result.isBodyRead) << c.status;
        EXPECT_EQ(reader->bodies, 1);
        EXPECT_EQ(reader->text, "");
    }
}

TEST_F(BodyOfNothingTest, ARedirectsBodyIsNotRead)
{
    const HostileServer server([](HostileConnection &connection, const SeenRequest &request) {
        if (request.target == "/end")
            connection.respond("200 OK", "the end");
        else
            connection.respond("302 Found", "moved",
                               "Location: /end\r\nContent-Encoding: gzip\r\n");
    });
    const auto reader = std::make_shared<NotingReader>();
    HttpRequest request = requestFor(server.url("/"));
    request.bodyReader = reader;
    EXPECT_TRUE(fetch(request).isBodyRead);
    EXPECT_EQ(reader->text, "the end");
}

TEST_F(BodyOfNothingTest, AnUnrequestedTransferEncodingIsNotDecoded)
{
    const HostileServer server([](HostileConnection &connection, const SeenRequest &) {
        connection.send("HTTP/1.1 200 OK\r\nConnection: close\r\nTransfer-Encoding: gzip\r\n\r\n" +
                        gzip("a page"));
    });
    EXPECT_EQ(fetch(server.url()).body, gzip("a page"));
}

} // namespace ostrel::test
