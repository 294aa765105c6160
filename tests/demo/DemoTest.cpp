#include "Demo.h"

#include "CurlNetwork.h"
#include "MonitorStore.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTcpSocket>
#include <QTemporaryFile>
#include <QUrl>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class DemoTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(demo.start()) << qPrintable(demo.reason()); }

    [[nodiscard]] QByteArray addressOf(const char *name) const
    {
        const MonitorStore store(demo.dataDir());
        for (const Monitor &monitor : store.monitors()) {
            if (monitor.name == QString::fromLatin1(name))
                return monitor.url.toLatin1();
        }
        return {};
    }
    [[nodiscard]] static HttpResult fetch(const QByteArray &address, const TrustStore &trust,
                                          const QByteArray &method = "GET")
    {
        CurlNetwork network({.trustStore = trust});
        const auto result = network.fetch({.url = address,
                                           .method = method,
                                           .userAgent = "test",
                                           .timeout = 30s,
                                           .bodyLimit = 1000,
                                           .tlsDelegate = nullptr});
        EXPECT_TRUE(waitFor([&] { return result.isFinished(); }));
        return result.result();
    }

    Demo demo;
};

TEST_F(DemoTest, TheFolderLoadsWithAHistoryForEachMonitor)
{
    const MonitorStore store(demo.dataDir());
    EXPECT_EQ(store.monitors().size(), 7);
    for (const Monitor &monitor : store.monitors())
        EXPECT_GT(store.checks(monitor.id).size(), 1000) << qPrintable(monitor.name);
}

TEST_F(DemoTest, EachWebsiteHasAnIcon)
{
    EXPECT_EQ(QDir(demo.dataDir() + u"/favicons"_s).entryList({u"*.png"_s}).size(), 5);
}

TEST_F(DemoTest, TheSitesAnswer)
{
    const HttpResult page = fetch(addressOf("Corner Bakery"), {});
    EXPECT_EQ(page.statusCode, 200) << qPrintable(page.error);
    EXPECT_TRUE(page.body.contains("Fresh bread"));
    for (const int status : {200, 503}) {
        EXPECT_TRUE(waitFor([&] {
            return fetch(addressOf("Train Tickets"), {}).statusCode == status;
        })) << status;
    }
    EXPECT_GE(fetch(addressOf("Photo Archive"), {}).elapsed, 600ms);
}

TEST_F(DemoTest, AHeadRequestGetsNoBody)
{
    const HttpResult head = fetch(addressOf("Corner Bakery"), {}, "HEAD");
    EXPECT_EQ(head.statusCode, 200) << qPrintable(head.error);
    EXPECT_EQ(head.body, "");
}

TEST_F(DemoTest, ARequestWithoutAnEndIsCutOff)
{
    const QUrl address(QString::fromLatin1(addressOf("Corner Bakery")));
    QTcpSocket socket;
    socket.connectToHost(address.host(), static_cast<quint16>(address.port()));
    socket.write(QByteArray(1'000'000, 'x'));
    EXPECT_TRUE(waitFor([&] { return socket.state() == QTcpSocket::UnconnectedState; }));
    EXPECT_EQ(socket.readAll(), "");
}

TEST_F(DemoTest, OnlyItsOwnBundleTrustsTheSecureSite)
{
    const QByteArray address = addressOf("Savings Bank");
    EXPECT_TRUE(address.startsWith("https:"));
    EXPECT_FALSE(fetch(address, TrustStore::system()).hasResponse);
    const HttpResult trusted = fetch(address, {.directory = {}, .file = demo.trustBundle({})});
    EXPECT_EQ(trusted.statusCode, 200) << qPrintable(trusted.error);
}

TEST_F(DemoTest, TheBundleHoldsOtherAuthoritiesToo)
{
    QTemporaryFile others;
    ASSERT_TRUE(others.open());
    others.write("# others\n");
    others.close();
    QFile bundle(QFile::decodeName(demo.trustBundle(QFile::encodeName(others.fileName()))));
    ASSERT_TRUE(bundle.open(QIODevice::ReadOnly));
    const QByteArray content = bundle.readAll();
    EXPECT_TRUE(content.startsWith("-----BEGIN CERTIFICATE-----"));
    EXPECT_TRUE(content.endsWith("# others\n"));
}

TEST_F(DemoTest, PreferencesAreItsOwn)
{
    const QSettings preferences(u"Ostrel"_s, u"Ostrel"_s);
    EXPECT_TRUE(preferences.fileName().startsWith(demo.preferencesDir()));
}

TEST(DemoFolderTest, IfItCantBeMadeTheReasonIsTold)
{
    const QByteArray former = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/proc"); // Nothing can be made there.
    Demo demo;
    qputenv("TMPDIR", former);
    EXPECT_FALSE(demo.start());
    EXPECT_FALSE(demo.reason().isEmpty());
}

TEST(DemoFolderTest, IsRemovedAtTheEnd)
{
    QString folder;
    {
        Demo demo;
        ASSERT_TRUE(demo.start());
        folder = demo.dataDir();
        ASSERT_TRUE(QDir(folder).exists());
    }
    EXPECT_FALSE(QDir(folder).exists());
    EXPECT_FALSE(QDir(folder + u"/.."_s).exists());
}

TEST(DemoPortTest, IsClosedAndOpenByTurns)
{
    DemoPort port(50ms, 50ms);
    ASSERT_TRUE(port.start());
    CurlNetwork network;
    const auto isOpen = [&] {
        const auto result = network.connect(u"127.0.0.1"_s, port.number(), 30s);
        EXPECT_TRUE(waitFor([&] { return result.isFinished(); }));
        return result.result().isConnected;
    };
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
    EXPECT_TRUE(waitFor(isOpen));
    EXPECT_TRUE(waitFor([&] { return !isOpen(); }));
}

} // namespace
} // namespace ostrel::test
