#include "PortCheck.h"

#include "EngineFakes.h"
#include "OfflineNetwork.h"
#include "Printers.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

struct Attempt
{
    QString host;
    quint16 port;
    std::chrono::milliseconds timeout;

    bool operator==(const Attempt &) const = default;
};

/// A port check with the test as its network, which answers with a value.
class PortCheckTest : public testing::Test, public OfflineNetwork
{
protected:
    PortCheckTest()
    {
        monitor.type = MonitorType::port;
        monitor.url = u"db.local"_s;
        monitor.port = 5432;
        monitor.timeout = Seconds(5);
    }

    QFuture<TcpResult> connect(const QString &host, quint16 port,
                               std::chrono::milliseconds timeout) override
    {
        attempts.push_back({host, port, timeout});
        return QtFuture::makeReadyFuture(result);
    }

    Check run()
    {
        const auto future = check.run(monitor);
        EXPECT_TRUE(waitFor([&] { return future.isFinished(); }));
        return future.result();
    }

    TcpResult result{.isConnected = true, .elapsed = 1500us};
    std::vector<Attempt> attempts;
    const Timestamp now = *parseTimestamp("2026-03-10T12:00:00Z");
    PortCheck check{*this, [this] { return now; }};
    Monitor monitor = makeMonitor();
};

} // namespace

TEST_F(PortCheckTest, AnOpenPortIsUpWithTheTimeOfTheConnection)
{
    const Check made = run();
    EXPECT_TRUE(made.isUp);
    EXPECT_FALSE(made.error.has_value());
    EXPECT_DOUBLE_EQ(made.responseTime, 1.5);
    EXPECT_EQ(made.monitorId, monitor.id);
    EXPECT_EQ(made.timestamp, now);
    EXPECT_FALSE(made.statusCode.has_value());
    EXPECT_FALSE(made.sslExpiresAt.has_value());
    EXPECT_FALSE(made.keywordFound.has_value());
    EXPECT_EQ(attempts, std::vector<Attempt>({{u"db.local"_s, 5432, 5s}}));
}

TEST_F(PortCheckTest, AClosedPortIsDownWithTheTimeOfTheAttempt)
{
    result = {.isConnected = false, .elapsed = 5s};
    const Check made = run();
    EXPECT_FALSE(made.isUp);
    EXPECT_EQ(made.error, OptionalText(u"Port 5432 closed or unreachable"_s));
    EXPECT_DOUBLE_EQ(made.responseTime, 5000);
}

TEST_F(PortCheckTest, WithoutAUsablePortNoConnectionIsTried)
{
    for (const std::optional<qint64> port :
         {std::optional<qint64>(), std::optional<qint64>(0), std::optional<qint64>(-1),
          std::optional<qint64>(65536), std::optional<qint64>(70000),
          std::optional<qint64>(std::numeric_limits<qint64>::max())}) {
        monitor.port = port;
        const Check made = run();
        EXPECT_FALSE(made.isUp) << port.value_or(0);
        EXPECT_EQ(made.error, OptionalText(u"Invalid host/port"_s));
        EXPECT_EQ(made.responseTime, 0);
    }
    EXPECT_TRUE(attempts.empty());
}

TEST_F(PortCheckTest, TheHostIsThatOfAFullAddressElseTheTextItself)
{
    struct
    {
        const char *url;
        const char *host;
    } const cases[] = {
        {"db.local", "db.local"},
        {"https://shop.example:8443/path", "shop.example"},
        {"ssh://git.example", "git.example"},
        {"http://[::1]:80/", "::1"},
        {"::1", "::1"},
        {"192.0.2.7", "192.0.2.7"},
        {"db.local:9999", "db.local:9999"},
        {"", ""},
    };
    for (const auto &c : cases) {
        attempts.clear();
        monitor.url = QString::fromLatin1(c.url);
        monitor.port = 22;
        static_cast<void>(run());
        ASSERT_EQ(attempts.size(), 1u) << c.url;
        EXPECT_EQ(attempts[0].host, QString::fromLatin1(c.host)) << c.url;
        EXPECT_EQ(attempts[0].port, 22) << c.url;
    }
}

} // namespace ostrel::test
