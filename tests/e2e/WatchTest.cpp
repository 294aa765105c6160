#include "ExpectedMonitor.h"
#include "FakeLogind.h"
#include "FakeNetworkManager.h"
#include "HostileBehaviours.h"
#include "LatenessMeter.h"
#include "NginxServer.h"
#include "NotificationDaemon.h"
#include "OstrelProgram.h"
#include "PrivateBus.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <atomic>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

/// Answers 500 to the requests whose numbers, from 1, are in @p failing, and 200 to the others.
HostileServer::Behaviour failOn(std::initializer_list<int> failing)
{
    const auto count = std::make_shared<std::atomic<int>>(0);
    return [count, numbers = std::vector<int>(failing)](HostileConnection &connection,
                                                        const SeenRequest &) {
        const bool fails = std::ranges::count(numbers, ++*count) > 0;
        connection.respond(fails ? "500 Internal Server Error" : "200 OK", "body");
    };
}

QString urgencyName(ShownNotification::Urgency urgency)
{
    switch (urgency) {
    case ShownNotification::Urgency::low:
        return u"low"_s;
    case ShownNotification::Urgency::normal:
        return u"normal"_s;
    case ShownNotification::Urgency::critical:
        return u"critical"_s;
    }
    Q_UNREACHABLE();
}

QStringList describe(const QList<ShownNotification> &notifications)
{
    QStringList lines;
    for (const auto &shown : notifications)
        lines += u"%1|%2|%3"_s.arg(shown.title, shown.body, urgencyName(shown.urgency));
    return lines;
}

/// Removes the one line that @p pattern matches wholly from @p lines; false if there is none.
bool takeMatch(QStringList &lines, const QString &pattern)
{
    const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
    const auto index = lines.indexOf(whole);
    if (index < 0)
        return false;
    lines.removeAt(index);
    return true;
}

class WatchTest : public testing::Test
{
protected:
    WatchTest()
    {
        program.setEnvironment(u"SSL_CERT_FILE"_s,
                               QString::fromLatin1(certificates.authorityFile()));
        program.setEnvironment(u"DBUS_SESSION_BUS_ADDRESS"_s, sessionBus.address());
        program.setEnvironment(u"DBUS_SYSTEM_BUS_ADDRESS"_s, systemBus.address());
    }

    void add(const ExpectedMonitor &expected) { monitors.push_back(expected); }

    void addWebMonitors();
    void addKeywordMonitors();
    void addTlsMonitors();
    void addHostileMonitors();
    void addPortMonitors();

    [[nodiscard]] QList<Monitor> records() const
    {
        QList<Monitor> list;
        for (const ExpectedMonitor &expected : monitors)
            list += expected.monitor;
        return list;
    }

    /// Whether every monitor that is watched has @p count checks or more.
    [[nodiscard]] bool haveChecks(std::size_t count) const
    {
        const auto checks = program.readChecks();
        return checks && std::ranges::all_of(monitors, [&](const ExpectedMonitor &expected) {
                   return !expected.monitor.isEnabled ||
                          checks->value(expected.monitor.id).size() >= count;
               });
    }

    TestCertificates certificates;
    const TestLeaf validLeaf = certificates.valid(TestCertificates::Key::Rsa);
    const TestLeaf ecdsaLeaf = certificates.valid(TestCertificates::Key::Ecdsa);
    const TestLeaf expiredLeaf = certificates.expired();
    const TestLeaf selfSignedLeaf = certificates.selfSigned();
    const TestLeaf strangeLeaf = certificates.forAnotherHost();
    const TestLeaf endingLeaf = certificates.validFor(std::chrono::hours(71));
    NginxServer nginx{{
        {.leaf = {},
         .directives =
             "location / { return 200 \"Welcome\"; }\n"
             "location /204 { return 204; }\n"
             "location /301 { return 301 /; }\n"
             "location /401 { return 401; }\n"
             "location /403 { return 403; }\n"
             "location /404 { return 404; }\n"
             "location /500 { return 500; }\n"
             "location /post { if ($request_method != POST) { return 405; } return 200; }"},
        {.leaf = validLeaf},
        {.leaf = ecdsaLeaf},
        {.leaf = expiredLeaf},
        {.leaf = selfSignedLeaf},
        {.leaf = strangeLeaf},
        {.leaf = endingLeaf},
    }};
    HostileServer silent{staySilent};
    HostileServer garbage{sendGarbage};
    HostileServer endless{sendEndlessBody};
    HostileServer slow{answerAfter(150ms)};
    HostileServer shortLived{failOn({1, 3, 5})};
    HostileServer outage{failOn({1, 2, 3})};
    VirtualDisplay display;
    PrivateBus sessionBus;
    PrivateBus systemBus{PrivateBus::Kind::system};
    FakeLogind logind{systemBus};
    NotificationDaemon daemon{sessionBus, display};
    OstrelProgram program;
    std::vector<ExpectedMonitor> monitors;
};

void WatchTest::addWebMonitors()
{
    add({.monitor = webMonitor(u"Home"_s, nginx.url(0, "/")), .statusCode = 200});
    Monitor head = webMonitor(u"Head"_s, nginx.url(0, "/head"));
    head.method = HTTPMethod::HEAD;
    add({.monitor = head, .statusCode = 200});
    Monitor post = webMonitor(u"Post"_s, nginx.url(0, "/post"));
    post.method = HTTPMethod::POST;
    add({.monitor = post, .statusCode = 200});
    add({.monitor = webMonitor(u"Empty"_s, nginx.url(0, "/204")), .statusCode = 204});
    add({.monitor = webMonitor(u"Moved"_s, nginx.url(0, "/301")), .statusCode = 200});
    add({.monitor = webMonitor(u"Locked"_s, nginx.url(0, "/401")), .statusCode = 401});
    add({.monitor = webMonitor(u"Forbidden"_s, nginx.url(0, "/403")), .statusCode = 403});
    add({.monitor = webMonitor(u"Missing"_s, nginx.url(0, "/404")),
         .isUp = false,
         .statusCode = 404,
         .errorPattern = "HTTP 404",
         .notifications = {downNotification(u"Missing"_s, u"HTTP 404"_s)}});
    Monitor quiet = webMonitor(u"Quiet"_s, nginx.url(0, "/500"));
    quiet.notifyOnDown = false;
    add({.monitor = quiet, .isUp = false, .statusCode = 500, .errorPattern = "HTTP 500"});
    Monitor paused = webMonitor(u"Paused"_s, nginx.url(0, "/paused"));
    paused.isEnabled = false;
    add({.monitor = paused});
    add({.monitor = webMonitor({}, "http://a b/"),
         .isUp = false,
         .errorPattern = "Invalid URL",
         .notifications = {downNotification(u"http://a b/"_s, u"Invalid URL"_s)}});
    add({.monitor = webMonitor(u"Bare"_s, "localhost"),
         .isUp = false,
         .errorPattern = "Unsupported.*",
         .notifications = {downNotification(u"Bare"_s, u"Unsupported.*"_s)}});
}

void WatchTest::addKeywordMonitors()
{
    Monitor found = webMonitor(u"Found"_s, nginx.url(0, "/found"));
    found.keyword = u"WELCOME"_s;
    add({.monitor = found, .statusCode = 200, .keywordFound = true});
    Monitor lost = webMonitor(u"Lost"_s, nginx.url(0, "/lost"));
    lost.keyword = u"goodbye"_s;
    add({.monitor = lost,
         .isUp = false,
         .statusCode = 200,
         .errorPattern = "Keyword 'goodbye' not found",
         .keywordFound = false,
         .notifications = {downNotification(u"Lost"_s, u"Keyword 'goodbye' not found"_s)}});
    Monitor absent = webMonitor(u"Absent"_s, nginx.url(0, "/absent"));
    absent.keyword = u"error"_s;
    absent.keywordShouldExist = false;
    add({.monitor = absent, .statusCode = 200, .keywordFound = false});
}

void WatchTest::addTlsMonitors()
{
    add({.monitor = webMonitor(u"Rsa"_s, nginx.url(1)),
         .statusCode = 200,
         .sslExpiresAt = validLeaf.notAfter});
    add({.monitor = webMonitor(u"Ecdsa"_s, nginx.url(2)),
         .statusCode = 200,
         .sslExpiresAt = ecdsaLeaf.notAfter});
    const struct
    {
        const char *name;
        int site;
        const TestLeaf &leaf;
        const char *error;
    } broken[] = {
        {"Expired", 3, expiredLeaf, "SSL certificate problem: certificate has expired"},
        {"SelfSigned", 4, selfSignedLeaf, "SSL certificate problem: self[- ]signed certificate"},
        {"Strange", 5, strangeLeaf,
         "SSL: no alternative certificate subject name matches target host name 'localhost'"},
    };
    for (const auto &site : broken) {
        add({.monitor = webMonitor(QString::fromUtf8(site.name), nginx.url(site.site)),
             .isUp = false,
             .errorPattern = site.error,
             .sslExpiresAt = site.leaf.notAfter,
             .notifications = {
                 downNotification(QString::fromUtf8(site.name), QString::fromUtf8(site.error))}});
    }
    add({.monitor = webMonitor(u"Ending"_s, nginx.url(6)),
         .statusCode = 200,
         .sslExpiresAt = endingLeaf.notAfter,
         .notifications = {u"SSL Certificate Expiring\\|Ending: 2 days remaining\\|critical"_s}});
}

void WatchTest::addHostileMonitors()
{
    const auto timedOut = "(Operation|Connection) timed out after \\d{4,} milliseconds.*";
    add({.monitor = webMonitor(u"Silent"_s, silent.url()),
         .isUp = false,
         .errorPattern = timedOut,
         .shortest = 1500ms,
         .longest = 1599ms,
         .notifications = {downNotification(u"Silent"_s, QString::fromUtf8(timedOut))}});
    add({.monitor = webMonitor(u"Endless"_s, endless.url()),
         .isUp = false,
         .errorPattern = timedOut,
         .shortest = 1500ms,
         .longest = 1599ms,
         .notifications = {downNotification(u"Endless"_s, QString::fromUtf8(timedOut))}});
    add({.monitor = webMonitor(u"Garbage"_s, garbage.url()),
         .isUp = false,
         .errorPattern = ".+",
         .notifications = {downNotification(u"Garbage"_s, u".+"_s)}});
    Monitor late = webMonitor(u"Late"_s, slow.url());
    late.responseTimeThreshold = Milliseconds(100);
    add({.monitor = late,
         .statusCode = 200,
         .shortest = 150ms,
         .longest = 299ms,
         .notifications = {u"Late is Slow\\|\\d{3,}ms \\(threshold: 100ms\\)\\|normal"_s}});
}

void WatchTest::addPortMonitors()
{
    const quint16 closed = closedPort();
    const QString unreachable = u"Port %1 closed or unreachable"_s.arg(closed);
    static const QByteArray pattern = unreachable.toLatin1();
    add({.monitor = portMonitor(u"Open"_s, u"127.0.0.1"_s, nginx.port(0))});
    add({.monitor = portMonitor(u"OpenByAddress"_s, u"https://localhost:1/path"_s, nginx.port(0))});
    add({.monitor = portMonitor(u"Closed"_s, u"127.0.0.1"_s, closed),
         .isUp = false,
         .errorPattern = pattern.constData(),
         .notifications = {downNotification(u"Closed"_s, unreachable)}});
    add({.monitor = portMonitor(u"NoPort"_s, u"127.0.0.1"_s, std::nullopt),
         .isUp = false,
         .errorPattern = "Invalid host/port",
         .notifications = {downNotification(u"NoPort"_s, u"Invalid host/port"_s)}});
    add({.monitor = portMonitor(u"HighPort"_s, u"127.0.0.1"_s, 70000),
         .isUp = false,
         .errorPattern = "Invalid host/port",
         .notifications = {downNotification(u"HighPort"_s, u"Invalid host/port"_s)}});
}

} // namespace

TEST_F(WatchTest, ThirtyMonitorsOfEveryKindAreWatchedAsTheRulesSay)
{
    addWebMonitors();
    addKeywordMonitors();
    addTlsMonitors();
    addHostileMonitors();
    addPortMonitors();
    ASSERT_EQ(monitors.size(), 30u);
    program.writeMonitors(records());
    const QByteArray monitorsBefore = program.file(u"monitors.json"_s);
    ASSERT_TRUE(daemon.start());

    const LatenessMeter lateness;
    ASSERT_TRUE(program.start());
    EXPECT_TRUE(waitFor([this] { return haveChecks(3); }));
    EXPECT_EQ(program.stop(), 0);

    EXPECT_EQ(program.file(u"monitors.json"_s), monitorsBefore);
    const auto checks = program.readChecks();
    ASSERT_TRUE(checks);
    const QStringList requests = nginx.accessLog();
    QStringList expectedNotifications;
    for (const ExpectedMonitor &expected : monitors) {
        const auto history = checks->value(expected.monitor.id);
        const std::string name = expected.monitor.displayName().toStdString();
        EXPECT_EQ(history.empty(), !expected.monitor.isEnabled) << name;
        for (const Check &check : history)
            EXPECT_EQ(expected.complaintAbout(check, lateness.worst()).toStdString(), "") << name;
        expectedNotifications += expected.notifications;
    }

    QStringList shown = describe(daemon.closeAll());
    for (const QString &pattern : expectedNotifications)
        EXPECT_TRUE(takeMatch(shown, pattern)) << qPrintable(pattern);
    EXPECT_EQ(shown.join(QLatin1Char('\n')).toStdString(), "") << "shown against the rules";

    // Each recorded check of these pages was one request, and every request was recorded, except
    // one that may have been under way at the end.
    for (const auto &[name, line] :
         {std::pair(u"Head"_s, u" HEAD /head 200 "_s), std::pair(u"Post"_s, u" POST /post 200 "_s),
          std::pair(u"Missing"_s, u" GET /404 404 "_s),
          std::pair(u"Found"_s, u" GET /found 200 "_s)}) {
        const auto monitor = std::ranges::find_if(
            monitors, [&name = name](const auto &each) { return each.monitor.name == name; });
        const auto recorded = static_cast<qsizetype>(checks->value(monitor->monitor.id).size());
        const auto seen = requests.filter(line).size();
        EXPECT_GE(seen, recorded) << qPrintable(name);
        EXPECT_LE(seen, recorded + 1) << qPrintable(name);
    }
    EXPECT_TRUE(requests.filter(u"/paused"_s).isEmpty());
    EXPECT_EQ(requests.filter(u" Mozilla/5.0 (Macintosh; Intel Mac OS X 14_0) "_s).size(),
              requests.size());
}

TEST_F(WatchTest, AnOutageAndItsEndNotifyOnceEach)
{
    add({.monitor = webMonitor(u"Outage"_s, outage.url())});
    add({.monitor = webMonitor(u"Flaky"_s, shortLived.url())});
    program.writeMonitors(records());
    ASSERT_TRUE(daemon.start());
    ASSERT_TRUE(program.start());
    EXPECT_TRUE(waitFor([this] { return haveChecks(6); }, 30s));
    EXPECT_EQ(program.stop(), 0);

    QStringList shown = describe(daemon.closeAll());
    EXPECT_TRUE(takeMatch(shown, u"Outage is Down\\|HTTP 500\\|critical"_s));
    EXPECT_TRUE(takeMatch(shown, u"Outage is Back Up\\|Responding in \\d+ms\\|normal"_s));
    EXPECT_EQ(shown.join(QLatin1Char('\n')).toStdString(), "") << "single failures are chance";
}

TEST_F(WatchTest, AWakeChecksEverythingOnceMoreAtOnce)
{
    Monitor hourly = webMonitor(u"Hourly"_s, nginx.url(0, "/hourly"));
    hourly.interval = Seconds(3600);
    Monitor paused = webMonitor(u"Paused"_s, nginx.url(0, "/paused"));
    paused.isEnabled = false;
    add({.monitor = hourly, .statusCode = 200});
    add({.monitor = paused});
    program.writeMonitors(records());
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return haveChecks(1); }));

    logind.announceSleep();
    logind.announceWake();
    EXPECT_TRUE(waitFor([this] { return haveChecks(2); }));
    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(program.readChecks()->value(hourly.id).size(), 2u);
    EXPECT_FALSE(program.readChecks()->contains(paused.id));
}

TEST_F(WatchTest, ACheckUnderWayAtASleepIsReplacedByOneAtTheWake)
{
    Monitor hanging = webMonitor(u"Hanging"_s, silent.url());
    hanging.interval = Seconds(3600);
    hanging.timeout = Seconds(1);
    program.writeMonitors({hanging});
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return silent.requests().size() == 1; }));

    logind.announceSleep();
    logind.announceWake();
    EXPECT_TRUE(waitFor([this] { return silent.requests().size() == 2; }));
    ASSERT_TRUE(waitFor([&] {
        const auto checks = program.readChecks();
        return checks && !checks->value(hanging.id).empty();
    }));
    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(program.readChecks()->value(hanging.id).size(), 1u) << "one failure, not two";
    EXPECT_EQ(silent.requests().size(), 2);
}

TEST_F(WatchTest, ChecksOfOtherComputersWaitForTheNetwork)
{
    FakeNetworkManager networkManager(systemBus, FakeNetworkManager::disconnected);
    ASSERT_TRUE(networkManager.isRunning());
    // By its text, this host isn't this computer, but it is reached all the same.
    program.setEnvironment(u"http_proxy"_s, QString::fromLatin1(nginx.url(0, "/")));
    const Monitor local = webMonitor(u"Local"_s, nginx.url(0, "/local"));
    const Monitor other = webMonitor(u"Other"_s, "http://other.test/");
    program.writeMonitors({local, other});
    ASSERT_TRUE(program.start());
    const auto count = [this](const Monitor &monitor) {
        return program.readChecks().value_or(QHash<QUuid, std::vector<Check>>())[monitor.id].size();
    };
    ASSERT_TRUE(waitFor([&] { return networkManager.questions() > 0 && count(local) >= 2; }));
    // The first check may have been sent before the answer was there.
    const auto before = count(other);
    EXPECT_TRUE(waitFor([&, before = count(local)] { return count(local) >= before + 3; }));
    EXPECT_EQ(count(other), before);

    networkManager.changeState(FakeNetworkManager::connectedGlobally);
    EXPECT_TRUE(waitFor([&] { return count(other) >= before + 2; }));
    EXPECT_EQ(program.stop(), 0);
    for (const Check &check : program.readChecks()->value(other.id))
        EXPECT_TRUE(check.isUp) << qPrintable(check.error.value_or(QString()));
}

TEST_F(WatchTest, ADaemonThatComesLateOrRestartsGetsNewNotifications)
{
    add({.monitor = webMonitor(u"Missing"_s, nginx.url(0, "/404"))});
    program.writeMonitors(records());
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return haveChecks(4); })) << "nothing waits for a daemon";
    ASSERT_TRUE(daemon.start());
    EXPECT_EQ(program.stop(), 0);

    ASSERT_TRUE(program.start());
    EXPECT_TRUE(waitFor([this] { return daemon.displayedCount() == 1; }));
    EXPECT_EQ(program.stop(), 0);
}

} // namespace ostrel::test
