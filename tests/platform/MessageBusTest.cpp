#include "MessageBus.h"

#include "BusHandshake.h"
#include "LocalServer.h"
#include "PrivateBus.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

using namespace std::chrono_literals;

BusAnswer ask(const QByteArray &addresses, std::chrono::milliseconds patience = 60s)
{
    return askBus(addresses, QDeadlineTimer(patience));
}

TEST(BusHandshakeTest, IsAnsweredByABus)
{
    for (const auto kind : {PrivateBus::Kind::session, PrivateBus::Kind::system}) {
        const PrivateBus bus(kind);
        ASSERT_TRUE(bus.isRunning());
        EXPECT_EQ(ask(bus.address().toUtf8()), BusAnswer::given);
        EXPECT_EQ(ask("unix:path=/nonexistent/bus;" + bus.address().toUtf8()), BusAnswer::given);
    }
}

TEST(BusHandshakeTest, FindsABusInTheRuntimeFolder)
{
    const PrivateBus bus;
    const QString path = bus.address().section(u"unix:path="_s, 1).section(u',', 0, 0);
    ASSERT_TRUE(path.endsWith(u"/bus"_s)) << qPrintable(path);
    qputenv("XDG_RUNTIME_DIR", path.section(u'/', 0, -2).toUtf8());
    EXPECT_EQ(ask("unix:runtime=yes"), BusAnswer::given);
    EXPECT_EQ(ask("unix:runtime=no"), BusAnswer::none);
}

TEST(BusHandshakeTest, HasNoBusIfNothingListens)
{
    for (const char *addresses :
         {"", ":", "unix:", "unix:path=", "unix:path=/nonexistent/bus", "unix:abstract=ostrel-none",
          "unix:path=/dev/null", "disabled:", "autolaunch:", "tcp:", "tcp:host=127.0.0.1,port=1",
          "unix:path=/%2", ";;;", "unixexec:path=/bin/false"})
        EXPECT_EQ(ask(addresses), BusAnswer::none) << addresses;
    EXPECT_EQ(ask("unix:path=" + QByteArray(1000, 'x')), BusAnswer::none);
}

TEST(BusHandshakeTest, WaitsForASilentBusNoLongerThanTheGivenTime)
{
    PrivateBus bus;
    bus.freeze();
    EXPECT_EQ(ask(bus.address().toUtf8(), 50ms), BusAnswer::awaited);
}

struct PoorAnswer
{
    const char *name;
    QByteArray greeting;
    QByteArray reply;
};

class PoorBusTest : public testing::TestWithParam<PoorAnswer>
{
};

TEST_P(PoorBusTest, IsAwaitedAndNeverTakenForABus)
{
    const LocalServer server(GetParam().greeting, GetParam().reply);
    EXPECT_EQ(ask(server.address(), 200ms), BusAnswer::awaited);
}

/// One little-endian message of @p type, whose fields and body have the given sizes.
QByteArray message(char type, quint32 fields = 0, quint32 body = 0)
{
    const auto number = [](quint32 value) {
        QByteArray bytes;
        for (int i = 0; i < 4; ++i, value >>= 8)
            bytes += static_cast<char>(value & 0xff);
        return bytes;
    };
    return QByteArray("l") + type + QByteArray("\0\1", 2) + number(body) + number(1) +
           number(fields);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, PoorBusTest,
    testing::Values(PoorAnswer{"Nothing", {}, {}},
                    PoorAnswer{"EndlessLine", QByteArray(200'000, 'x'), {}},
                    PoorAnswer{"NoHello", "OK 0123\r\n", {}},
                    PoorAnswer{"HalfAHead", "OK 0123\r\n", message(2).first(15)},
                    PoorAnswer{"HelloAlone", "OK 0123\r\n", message(2)},
                    PoorAnswer{"SignalsAlone", "OK 0123\r\n", message(4).repeated(3)},
                    PoorAnswer{"HugeFields", "OK 0123\r\n", message(2, 0xffffffff)},
                    PoorAnswer{"HugeBody", "OK 0123\r\n", message(2, 0, 0xffffffff)}),
    [](const auto &test) { return std::string(test.param.name); });

TEST(BusHandshakeTest, TakesErrorsAndOtherMessagesInBetween)
{
    const QByteArray replies = message(2) + message(4) + message(3, 3, 5) + QByteArray(13, '\0');
    const LocalServer server("OK 0123\r\n", replies);
    EXPECT_EQ(ask(server.address()), BusAnswer::given);
}

TEST(BusHandshakeTest, IsAnsweredByABusThatRefusesUs)
{
    const LocalServer server("REJECTED DBUS_COOKIE_SHA1\r\n", {});
    EXPECT_EQ(ask(server.address()), BusAnswer::given);
}

TEST(MessageBusTest, MayAnswerLate)
{
    PrivateBus bus;
    bus.freeze();
    const MessageBus late(bus.address().toUtf8());
    EXPECT_FALSE(late.answersWithin(50ms));
    EXPECT_TRUE(late.isAwaited());
    bus.thaw();
    EXPECT_TRUE(waitFor([&] { return !late.isAwaited(); }));
    EXPECT_FALSE(late.answer().isCanceled());
    EXPECT_TRUE(late.answersWithin(60s));
}

TEST(MessageBusTest, IsNotAwaitedIfNothingListens)
{
    for (const char *addresses : {"", "unix:path=/nonexistent/bus"}) {
        const MessageBus none(addresses);
        EXPECT_FALSE(none.answersWithin(60s));
        EXPECT_TRUE(waitFor([&] { return none.answer().isCanceled(); }));
        EXPECT_FALSE(none.isAwaited());
    }
}

TEST(SessionBusAddressesTest, ComeFromTheEnvironment)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/a;unix:path=/b");
    EXPECT_EQ(sessionBusAddresses(), "unix:path=/a;unix:path=/b");
}

TEST(SessionBusAddressesTest, ComeFromTheRuntimeFolderOtherwise)
{
    const PrivateBus bus;
    const QString path = bus.address().section(u"unix:path="_s, 1).section(u',', 0, 0);
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", path.section(u'/', 0, -2).toUtf8());
    EXPECT_EQ(ask(sessionBusAddresses()), BusAnswer::given);
}

TEST(SessionBusAddressesTest, AreEmptyIfABusWouldHaveToBeStarted)
{
    const std::pair<const char *, const char *> environments[] = {
        {"", ""}, {"", "/nonexistent"}, {"", "/proc/self/root/bin/.."}, {"autolaunch:", ""}};
    for (const auto &[address, folder] : environments) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        qputenv("XDG_RUNTIME_DIR", folder);
        EXPECT_EQ(sessionBusAddresses(), QByteArray()) << address << folder;
    }
}

TEST(HiddenSessionBusTest, IsHiddenFromUsButNotFromProgramsThatWeStart)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/a");
    hideSessionBus();
    EXPECT_EQ(ask(sessionBusAddresses()), BusAnswer::none);
    const auto variable = u"DBUS_SESSION_BUS_ADDRESS"_s;
    EXPECT_EQ(environmentOfPrograms().value(variable), u"unix:path=/a"_s);
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    hideSessionBus();
    EXPECT_EQ(ask(sessionBusAddresses()), BusAnswer::none);
    EXPECT_FALSE(environmentOfPrograms().contains(variable));
}

} // namespace
} // namespace ostrel::test
