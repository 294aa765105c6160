#include "HttpCheck.h"

#include "BodyReader.h"
#include "EngineFakes.h"
#include "OfflineNetwork.h"
#include "Printers.h"
#include "TlsDelegate.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

const Timestamp now = *parseTimestamp("2026-03-10T12:00:00Z");

HttpResult response(int statusCode, const QByteArray &body = {},
                    std::chrono::microseconds elapsed = 120ms)
{
    HttpResult result;
    result.hasResponse = true;
    result.statusCode = statusCode;
    result.body = body;
    result.elapsed = elapsed;
    return result;
}

/// An HTTP check with the test as its network, which answers with a value.
class HttpCheckTest : public testing::Test, public OfflineNetwork
{
protected:
    QFuture<HttpResult> fetch(const HttpRequest &request) override
    {
        requests.push_back(request);
        if (redirectingCertificateEnd)
            request.tlsDelegate->didReceiveLeafCertificate(*redirectingCertificateEnd);
        if (certificateEnd)
            request.tlsDelegate->didReceiveLeafCertificate(*certificateEnd);
        if (request.bodyReader && result.hasResponse)
            read(*request.bodyReader);
        return QtFuture::makeReadyFuture(result);
    }

    Check run()
    {
        auto future = check.run(monitor);
        EXPECT_TRUE(waitFor([&] { return future.isFinished(); }));
        return future.isFinished() ? future.result() : Check();
    }

    void read(BodyReader &reader)
    {
        reader.begin();
        reader.read(bodyBefore);
        reader.begin();
        for (qsizetype i = 0; i < result.body.size(); i += pieceSize)
            reader.read(
                QByteArrayView(result.body).sliced(i, qMin(pieceSize, result.body.size() - i)));
        result.isBodyRead = isBodyReadable;
    }

    HttpResult result = response(200);
    QByteArray bodyBefore; ///< The body of an earlier hop.
    qsizetype pieceSize = 1000;
    bool isBodyReadable = true;
    std::optional<std::chrono::sys_seconds> redirectingCertificateEnd;
    std::optional<std::chrono::sys_seconds> certificateEnd;
    std::vector<HttpRequest> requests;
    HttpCheck check{*this, [] { return now; }};
    Monitor monitor = makeMonitor();
};

} // namespace

TEST_F(HttpCheckTest, StatusRule)
{
    struct
    {
        int statusCode;
        bool isUp;
        const char *error;
    } const cases[] = {
        {200, true, nullptr},     {204, true, nullptr},     {304, true, nullptr},
        {399, true, nullptr},     {401, true, nullptr},     {403, true, nullptr},
        {400, false, "HTTP 400"}, {402, false, "HTTP 402"}, {404, false, "HTTP 404"},
        {500, false, "HTTP 500"}, {503, false, "HTTP 503"}, {199, false, "HTTP 199"},
        {999, false, "HTTP 999"}, {0, false, "HTTP 0"},
    };
    for (const auto &c : cases) {
        result = response(c.statusCode);
        const Check made = run();
        EXPECT_EQ(made.isUp, c.isUp) << c.statusCode;
        EXPECT_EQ(made.statusCode, CompactOptional<qint32>(c.statusCode));
        EXPECT_EQ(made.error.value_or(u"-"_s), QString::fromLatin1(c.error ? c.error : "-"));
    }
}

TEST_F(HttpCheckTest, AResponseFillsTheRecord)
{
    result = response(200, {}, 245123us);
    const Check made = run();

    EXPECT_FALSE(made.id.isNull());
    EXPECT_EQ(made.monitorId, monitor.id);
    EXPECT_EQ(made.timestamp, now);
    EXPECT_DOUBLE_EQ(made.responseTime, 245.123);
    EXPECT_FALSE(made.keywordFound.has_value());
    EXPECT_FALSE(made.sslExpiresAt.has_value());
    EXPECT_NE(run().id, made.id);
}

TEST_F(HttpCheckTest, TheRequestIsMadeFromTheMonitor)
{
    monitor.url = QString::fromUtf8("https://b\xc3\xbc"
                                    "cher.example/a b?q=\xc3\xa9");
    monitor.method = HTTPMethod::HEAD;
    monitor.timeout = Seconds(2.5);
    static_cast<void>(run());

    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].url, QByteArray("https://xn--bcher-kva.example/a%20b?q=%C3%A9"));
    EXPECT_EQ(requests[0].method, QByteArray("HEAD"));
    EXPECT_EQ(requests[0].timeout, 2500ms);
    EXPECT_EQ(requests[0].bodyLimit, 0) << "no body is kept where no keyword needs it";
    EXPECT_EQ(requests[0].userAgent,
              QByteArray("Mozilla/5.0 (Macintosh; Intel Mac OS X 14_0) AppleWebKit/605.1.15 "
                         "(KHTML, like Gecko) Version/17.0 Safari/605.1.15"));
}

TEST_F(HttpCheckTest, AnUnparsableAddressIsInvalidWithoutARequest)
{
    for (const char *address : {"", "http://a b.example/", "http://[::1", "https://host:port/"}) {
        monitor.url = QString::fromLatin1(address);
        const Check made = run();
        EXPECT_FALSE(made.isUp) << address;
        EXPECT_EQ(made.error, OptionalText(u"Invalid URL"_s)) << address;
        EXPECT_EQ(made.responseTime, 0) << address;
        EXPECT_FALSE(made.statusCode.has_value()) << address;
    }
    EXPECT_TRUE(requests.empty());
}

TEST_F(HttpCheckTest, AnAddressWithoutASchemeIsRequestedUnchanged)
{
    monitor.url = u"shop.example/login"_s;
    static_cast<void>(run());
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].url, QByteArray("shop.example/login"));
}

TEST_F(HttpCheckTest, ATransportErrorKeepsItsTextItsTimeAndTheCertificateSeenBefore)
{
    monitor.keyword = u"OK"_s;
    certificateEnd = std::chrono::floor<std::chrono::seconds>(now - 24h);
    result = HttpResult();
    result.error = u"SSL certificate problem: certificate has expired"_s;
    result.elapsed = 31ms;
    const Check made = run();

    EXPECT_FALSE(made.isUp);
    EXPECT_EQ(made.error, OptionalText(result.error));
    EXPECT_DOUBLE_EQ(made.responseTime, 31);
    EXPECT_FALSE(made.statusCode.has_value());
    EXPECT_FALSE(made.keywordFound.has_value());
    EXPECT_EQ(made.sslExpiresAt, CompactOptional<Timestamp>(now - 24h));
}

TEST_F(HttpCheckTest, KeywordRule)
{
    struct
    {
        const char *name;
        int statusCode;
        QByteArray body;
        const char *keyword;
        bool shouldExist;
        bool isUp;
        const char *error;
        std::optional<bool> found;
    } const cases[] = {
        {"found whatever the case", 200, "ok", "OK", true, true, nullptr, true},
        {"missing", 200, "failure", "OK", true, false, "Keyword 'OK' not found", false},
        {"forbidden and found", 200, "Error 17", "error", false, false,
         "Keyword 'error' found (unexpected)", true},
        {"forbidden and missing", 200, "fine", "error", false, true, nullptr, false},
        {"a keyword text replaces a status text", 500, "oops", "OK", true, false,
         "Keyword 'OK' not found", false},
        {"a keyword success is no success", 500, "OK", "OK", true, false, "HTTP 500", true},
        {"no UTF-8: not enforced", 200, "\xff\xfe", "OK", true, true, nullptr, std::nullopt},
        {"an empty keyword is none", 200, "x", "", true, true, nullptr, std::nullopt},
        {"an empty body", 200, "", "OK", true, false, "Keyword 'OK' not found", false},
        {"a pattern's characters are text", 200, "a%1b", "%1", false, false,
         "Keyword '%1' found (unexpected)", true},
    };
    for (const auto &c : cases) {
        monitor.keyword = QString::fromLatin1(c.keyword);
        monitor.keywordShouldExist = c.shouldExist;
        result = response(c.statusCode, c.body);
        const Check made = run();
        EXPECT_EQ(made.isUp, c.isUp) << c.name;
        EXPECT_EQ(made.keywordFound, c.found) << c.name;
        EXPECT_EQ(made.error.value_or(u"-"_s), QString::fromLatin1(c.error ? c.error : "-"))
            << c.name;
    }
    EXPECT_EQ(requests.back().bodyLimit, 0);
}

TEST_F(HttpCheckTest, ATimeoutOfMonthsDoesNotOverflow)
{
    monitor.keyword = u"OK"_s;
    // The second of them, in milliseconds, is slightly more than 32 bits hold.
    for (const double seconds : {30. * 86400, 4294967.3, 1e9, 1e300}) {
        monitor.timeout = Seconds(seconds);
        result = response(200, "OK");

        const Check ended = run();

        EXPECT_TRUE(ended.isUp) << seconds;
        EXPECT_EQ(ended.keywordFound, true) << seconds;
        EXPECT_GE(requests.back().timeout, 30 * 24h) << seconds;
    }
}

TEST_F(HttpCheckTest, ABodyThatIsReadInPiecesIsSearchedAsOne)
{
    monitor.keyword = QString::fromUtf8("caf\u00e9");
    result = response(200, "le cafe\u0301 est ouvert");
    for (pieceSize = 1; pieceSize < 8; ++pieceSize)
        EXPECT_EQ(run().keywordFound, true) << pieceSize;
}

TEST_F(HttpCheckTest, OnlyTheLastBodyIsSearched)
{
    monitor.keyword = u"OK"_s;
    bodyBefore = "OK, but moved";
    result = response(200, "failure");
    EXPECT_EQ(run().keywordFound, false);
}

TEST_F(HttpCheckTest, IfTheBodyCouldNotBeReadTheStatusDecides)
{
    monitor.keyword = u"OK"_s;
    isBodyReadable = false;
    for (const bool shouldExist : {true, false}) {
        monitor.keywordShouldExist = shouldExist;
        result = response(200, "OK");
        const Check up = run();
        EXPECT_TRUE(up.isUp);
        EXPECT_EQ(up.keywordFound, std::nullopt);
        EXPECT_FALSE(up.error);

        result = response(500, "OK");
        const Check down = run();
        EXPECT_FALSE(down.isUp);
        EXPECT_EQ(down.error, u"HTTP 500"_s);
        EXPECT_EQ(down.keywordFound, std::nullopt);
    }
}

TEST_F(HttpCheckTest, WithoutAKeywordTheBodyIsNotRead)
{
    static_cast<void>(run());
    EXPECT_EQ(requests.back().bodyReader, nullptr);
    monitor.keyword = QString();
    static_cast<void>(run());
    EXPECT_EQ(requests.back().bodyReader, nullptr);
}

TEST_F(HttpCheckTest, ASlowAnswerIsUpWithoutAnError)
{
    monitor.responseTimeThreshold = Milliseconds(500);
    result = response(200, {}, 500001us);
    const Check slow = run();
    EXPECT_TRUE(slow.isUp);
    EXPECT_FALSE(slow.error.has_value());
    EXPECT_DOUBLE_EQ(slow.responseTime, 500.001);
}

TEST_F(HttpCheckTest, TheCertificateIsRecordedUpOrDown)
{
    certificateEnd = std::chrono::floor<std::chrono::seconds>(now) + 24h;
    for (const int statusCode : {200, 500}) {
        result = response(statusCode);
        EXPECT_EQ(run().sslExpiresAt, CompactOptional<Timestamp>(Timestamp(*certificateEnd)))
            << statusCode;
    }
}

TEST_F(HttpCheckTest, OfSeveralCertificatesTheLastIsRecorded)
{
    const auto today = std::chrono::floor<std::chrono::seconds>(now);
    redirectingCertificateEnd = today + 24h;
    certificateEnd = today + 100 * 24h;
    EXPECT_EQ(run().sslExpiresAt, CompactOptional<Timestamp>(Timestamp(*certificateEnd)));

    std::swap(redirectingCertificateEnd, certificateEnd);
    EXPECT_EQ(run().sslExpiresAt, CompactOptional<Timestamp>(Timestamp(*certificateEnd)));
}

TEST_F(HttpCheckTest, WithoutACertificateNoneIsRecorded)
{
    EXPECT_FALSE(run().sslExpiresAt.has_value());
}

} // namespace ostrel::test
