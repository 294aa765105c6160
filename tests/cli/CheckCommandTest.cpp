#include "CheckCommand.h"

#include "CurlNetwork.h"
#include "DecodedChecks.h"
#include "ForeignTexts.h"
#include "HostileBehaviours.h"
#include "Printers.h"

#include <QPromise>

#include <gtest/gtest.h>

#include <new>
#include <optional>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

CheckInvocation invocation(const QByteArray &url)
{
    CheckInvocation check;
    check.monitor.id = QUuid::createUuid();
    check.monitor.url = QString::fromLatin1(url);
    check.monitor.timeout = Seconds(5);
    return check;
}

Check failedCheck(const QString &error)
{
    Check check;
    check.responseTime = 0.5;
    check.error = error;
    return check;
}

Check runOnce(const CheckInvocation &invocation)
{
    CurlNetwork network;
    return runCheckOnce(invocation, network);
}

QByteArray describe(const CheckInvocation &invocation, const Check &check)
{
    return describeCheck(invocation.monitor, check, invocation.format);
}

} // namespace

TEST(CheckCommandTest, AnAddressThatAnswersIsUp)
{
    const HostileServer server(answerWith("welcome"));
    CheckInvocation check = invocation(server.url());
    check.monitor.keyword = u"WELCOME"_s;
    const Check made = runOnce(check);

    EXPECT_EQ(exitCodeOf(made), exitDone);
    const QByteArray text = describe(check, made);
    EXPECT_TRUE(text.startsWith("UP    http://127.0.0.1:")) << text.toStdString();
    EXPECT_TRUE(text.contains("HTTP 200")) << text.toStdString();
    EXPECT_TRUE(text.endsWith("\n      Keyword found\n")) << text.toStdString();
}

TEST(CheckCommandTest, AnAddressThatFailsIsDownWithItsReason)
{
    const HostileServer server(answerWithStatus);
    const CheckInvocation check = invocation(server.url("/503"));
    const Check made = runOnce(check);
    EXPECT_EQ(exitCodeOf(made), exitFailed);
    EXPECT_TRUE(describe(check, made).endsWith("\n      HTTP 503\n"));
}

TEST(CheckCommandTest, APortIsOpenOrClosed)
{
    const HostileServer server(staySilent);
    CheckInvocation check = invocation("127.0.0.1");
    check.monitor.type = MonitorType::port;
    check.monitor.port = server.port();
    EXPECT_EQ(exitCodeOf(runOnce(check)), exitDone);

    check.monitor.port = closedPort();
    const Check made = runOnce(check);
    EXPECT_EQ(exitCodeOf(made), exitFailed);
    EXPECT_TRUE(describe(check, made).contains("closed or unreachable"));
}

TEST(CheckCommandTest, ForeignTextsTakeOneLineEach)
{
    for (const ForeignText &foreign : foreignTexts()) {
        CheckInvocation check = invocation("");
        check.monitor.url = foreign.text;
        const QString text = QString::fromUtf8(describe(check, failedCheck(foreign.text)));
        const QStringList lines = text.split(u'\n');
        ASSERT_EQ(lines.size(), 3) << foreign.name;
        EXPECT_TRUE(isFitForPeople(lines[0])) << foreign.name;
        EXPECT_TRUE(isFitForPeople(lines[1])) << foreign.name;
    }
}

TEST(CheckCommandTest, TextsWithPlaceholdersArePrintedUnchanged)
{
    CheckInvocation check = invocation("db%1%2.local");
    check.monitor.type = MonitorType::port;
    check.monitor.port = 5432;
    EXPECT_EQ(describe(check, failedCheck(u"%1 100%"_s)),
              QByteArray("DOWN  db%1%2.local, port 5432  0 ms\n      %1 100%\n"));
}

TEST(CheckCommandTest, JsonIsTheStoredForm)
{
    const HostileServer server(answerWith("welcome"));
    CheckInvocation check = invocation(server.url());
    check.format = OutputFormat::json;
    const Check made = runOnce(check);

    const QByteArray json = describe(check, made);
    EXPECT_TRUE(json.endsWith("}\n"));
    const auto read = decodeCheck(json.trimmed());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->id, made.id);
    EXPECT_EQ(read->responseTime, made.responseTime);
}

TEST(CheckCommandTest, TheEndOfTheCertificateIsTold)
{
    Check check;
    check.isUp = true;
    check.statusCode = 200;
    check.sslExpiresAt = parseTimestamp("2026-03-01T12:00:00Z");
    const QByteArray text = describe(invocation("https://shop.example/"), check);
    EXPECT_TRUE(text.endsWith("\n      Certificate expires 2026-03-01T12:00:00Z\n"))
        << text.toStdString();
    check.sslExpiresAt = std::nullopt;
    EXPECT_FALSE(describe(invocation("https://shop.example/"), check).contains("Certificate"));
}

TEST(CheckCommandTest, ASlowAnswerIsReportedAndCountsAsUp)
{
    using namespace std::chrono_literals;
    const HostileServer server(answerAfter(60ms));
    CheckInvocation check = invocation(server.url());
    check.monitor.responseTimeThreshold = Milliseconds(50);
    const Check made = runOnce(check);
    EXPECT_EQ(exitCodeOf(made), exitDone);
    EXPECT_TRUE(describe(check, made).contains("Slow: the threshold is 50 ms"));
}

/// Throws bad_alloc at a request, or cancels it before there is an answer.
class FailingNetwork : public Network
{
public:
    explicit FailingNetwork(bool isThrowing)
        : m_isThrowing(isThrowing)
    {
    }
    QFuture<HttpResult> fetch(const HttpRequest &) override { return cancelled<HttpResult>(); }
    QFuture<TcpResult> connect(const QString &, quint16, std::chrono::milliseconds) override
    {
        return cancelled<TcpResult>();
    }
    void dropConnections() override {}

private:
    template<typename Result>
    [[nodiscard]] QFuture<Result> cancelled() const
    {
        if (m_isThrowing)
            throw std::bad_alloc();
        QPromise<Result> promise;
        promise.start();
        return promise.future();
    }

    bool m_isThrowing;
};

TEST(CheckCommandTest, ACheckThatCannotBeCarriedOutIsDownAndSaysSo)
{
    for (const bool isThrowing : {false, true}) {
        FailingNetwork network(isThrowing);
        const Check check = runCheckOnce(invocation("http://127.0.0.1/"), network);
        EXPECT_FALSE(check.isUp);
        EXPECT_EQ(check.error, u"The check could not be carried out"_s);
    }
}

} // namespace ostrel::test
