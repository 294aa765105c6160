#include "ExpectedMonitor.h"
#include "FakeLogind.h"
#include "FakeNetworkManager.h"
#include "HostileBehaviours.h"
#include "NginxServer.h"
#include "NotificationDaemon.h"
#include "OstrelProgram.h"
#include "PrivateBus.h"
#include "Text.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <atomic>

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
        return text("low");
    case ShownNotification::Urgency::normal:
        return text("normal");
    case ShownNotification::Urgency::critical:
        return text("critical");
    }
    Q_UNREACHABLE();
}

QStringList describe(const QList<ShownNotification> &notifications)
{
    QStringList lines;
    for (const auto &shown : notifications)
        lines +=
            QStringLiteral("%1|%2|%3").arg(shown.title, shown.body, urgencyName(shown.urgency));
    return lines;
}

/// Takes the one line that @p pattern matches wholly out of @p lines; false where there is none.
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
        program.setEnvironment(text("SSL_CERT_FILE"),
                               QString::fromLatin1(certificates.authorityFile()));
        program.setEnvironment(text("DBUS_SESSION_BUS_ADDRESS"), sessionBus.address());
        program.setEnvironment(text("DBUS_SYSTEM_BUS_ADDRESS"), systemBus.address());
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
    add({.monitor = webMonitor(text("Home"), nginx.url(0, "/")), .statusCode = 200});
    Monitor head = webMonitor(text("Head"), nginx.url(0, "/head"));
    head.method = HTTPMethod::HEAD;
    add({.monitor = head, .statusCode = 200});
    Monitor post = webMonitor(text("Post"), nginx.url(0, "/post"));
    post.method = HTTPMethod::POST;
    add({.monitor = post, .statusCode = 200});
    add({.monitor = webMonitor(text("Empty"), nginx.url(0, "/204")), .statusCode = 204});
    add({.monitor = webMonitor(text("Moved"), nginx.url(0, "/301")), .statusCode = 200});
    add({.monitor = webMonitor(text("Locked"), nginx.url(0, "/401")), .statusCode = 401});
    add({.monitor = webMonitor(text("Forbidden"), nginx.url(0, "/403")), .statusCode = 403});
    add({.monitor = webMonitor(text("Missing"), nginx.url(0, "/404")),
         .isUp = false,
         .statusCode = 404,
         .errorPattern = "HTTP 404",
         .notifications = {downNotification(text("Missing"), text("HTTP 404"))}});
    Monitor quiet = webMonitor(text("Quiet"), nginx.url(0, "/500"));
    quiet.notifyOnDown = false;
    add({.monitor = quiet, .isUp = false, .statusCode = 500, .errorPattern = "HTTP 500"});
    Monitor paused = webMonitor(text("Paused"), nginx.url(0, "/paused"));
    paused.isEnabled = false;
    add({.monitor = paused});
    add({.monitor = webMonitor({}, "http://a b/"),
         .isUp = false,
         .errorPattern = "Invalid URL",
         .notifications = {downNotification(text("http://a b/"), text("Invalid URL"))}});
    add({.monitor = webMonitor(text("Bare"), "localhost"),
         .isUp = false,
         .errorPattern = "Unsupported.*",
         .notifications = {downNotification(text("Bare"), text("Unsupported.*"))}});
}

void WatchTest::addKeywordMonitors()
{
    Monitor found = webMonitor(text("Found"), nginx.url(0, "/found"));
    found.keyword = text("WELCOME");
    add({.monitor = found, .statusCode = 200, .keywordFound = true});
    Monitor lost = webMonitor(text("Lost"), nginx.url(0, "/lost"));
    lost.keyword = text("goodbye");
    add({.monitor = lost,
         .isUp = false,
         .statusCode = 200,
         .errorPattern = "Keyword 'goodbye' not found",
         .keywordFound = false,
         .notifications = {downNotification(text("Lost"), text("Keyword 'goodbye' not found"))}});
    Monitor absent = webMonitor(text("Absent"), nginx.url(0, "/absent"));
    absent.keyword = text("error");
    absent.keywordShouldExist = false;
    add({.monitor = absent, .statusCode = 200, .keywordFound = false});
}

void WatchTest::addTlsMonitors()
{
    add({.monitor = webMonitor(text("Rsa"), nginx.url(1)),
         .statusCode = 200,
         .sslExpiresAt = validLeaf.notAfter});
    add({.monitor = webMonitor(text("Ecdsa"), nginx.url(2)),
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
        add({.monitor = webMonitor(text(site.name), nginx.url(site.site)),
             .isUp = false,
             .errorPattern = site.error,
             .sslExpiresAt = site.leaf.notAfter,
             .notifications = {downNotification(text(site.name), text(site.error))}});
    }
    add({.monitor = webMonitor(text("Ending"), nginx.url(6)),
         .statusCode = 200,
         .sslExpiresAt = endingLeaf.notAfter,
         .notifications = {
             text("SSL Certificate Expiring\\|Ending: 2 days remaining\\|critical")}});
}

void WatchTest::addHostileMonitors()
{
    const auto timedOut = "(Operation|Connection) timed out after 15\\d\\d milliseconds.*";
    add({.monitor = webMonitor(text("Silent"), silent.url()),
         .isUp = false,
         .errorPattern = timedOut,
         .notifications = {downNotification(text("Silent"), text(timedOut))}});
    add({.monitor = webMonitor(text("Endless"), endless.url()),
         .isUp = false,
         .errorPattern = timedOut,
         .notifications = {downNotification(text("Endless"), text(timedOut))}});
    add({.monitor = webMonitor(text("Garbage"), garbage.url()),
         .isUp = false,
         .errorPattern = ".+",
         .notifications = {downNotification(text("Garbage"), text(".+"))}});
    Monitor late = webMonitor(text("Late"), slow.url());
    late.responseTimeThreshold = Milliseconds(100);
    add({.monitor = late,
         .statusCode = 200,
         .notifications = {text("Late is Slow\\|[12]\\d\\dms \\(threshold: 100ms\\)\\|normal")}});
}

void WatchTest::addPortMonitors()
{
    const quint16 closed = closedPort();
    const QString unreachable = QStringLiteral("Port %1 closed or unreachable").arg(closed);
    static const QByteArray pattern = unreachable.toLatin1();
    add({.monitor = portMonitor(text("Open"), text("127.0.0.1"), nginx.port(0))});
    add({.monitor =
             portMonitor(text("OpenByAddress"), text("https://localhost:1/path"), nginx.port(0))});
    add({.monitor = portMonitor(text("Closed"), text("127.0.0.1"), closed),
         .isUp = false,
         .errorPattern = pattern.constData(),
         .notifications = {downNotification(text("Closed"), unreachable)}});
    add({.monitor = portMonitor(text("NoPort"), text("127.0.0.1"), std::nullopt),
         .isUp = false,
         .errorPattern = "Invalid host/port",
         .notifications = {downNotification(text("NoPort"), text("Invalid host/port"))}});
    add({.monitor = portMonitor(text("HighPort"), text("127.0.0.1"), 70000),
         .isUp = false,
         .errorPattern = "Invalid host/port",
         .notifications = {downNotification(text("HighPort"), text("Invalid host/port"))}});
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
    const QByteArray monitorsBefore = program.file(text("monitors.json"));
    ASSERT_TRUE(daemon.start());

    ASSERT_TRUE(program.start());
    EXPECT_TRUE(waitFor([this] { return haveChecks(3); }, 40s));
    EXPECT_EQ(program.stop(), 0);

    EXPECT_EQ(program.file(text("monitors.json")), monitorsBefore);
    const auto checks = program.readChecks();
    ASSERT_TRUE(checks);
    const QStringList requests = nginx.accessLog();
    QStringList expectedNotifications;
    for (const ExpectedMonitor &expected : monitors) {
        const auto history = checks->value(expected.monitor.id);
        const std::string name = expected.monitor.displayName().toStdString();
        EXPECT_EQ(history.empty(), !expected.monitor.isEnabled) << name;
        for (const Check &check : history)
            EXPECT_EQ(expected.complaintAbout(check).toStdString(), "") << name;
        expectedNotifications += expected.notifications;
    }

    QStringList shown = describe(daemon.closeAll());
    for (const QString &pattern : expectedNotifications)
        EXPECT_TRUE(takeMatch(shown, pattern)) << qPrintable(pattern);
    EXPECT_EQ(shown.join(QLatin1Char('\n')).toStdString(), "") << "shown against the rules";

    // Every recorded check of a page of its own was one request, and no request went unrecorded
    // but one that was under way at the end.
    for (const auto &[name, line] : {std::pair(text("Head"), text(" HEAD /head 200 ")),
                                     std::pair(text("Post"), text(" POST /post 200 ")),
                                     std::pair(text("Missing"), text(" GET /404 404 ")),
                                     std::pair(text("Found"), text(" GET /found 200 "))}) {
        const auto monitor = std::ranges::find_if(
            monitors, [&name = name](const auto &each) { return each.monitor.name == name; });
        const auto recorded = static_cast<qsizetype>(checks->value(monitor->monitor.id).size());
        const auto seen = requests.filter(line).size();
        EXPECT_GE(seen, recorded) << qPrintable(name);
        EXPECT_LE(seen, recorded + 1) << qPrintable(name);
    }
    EXPECT_TRUE(requests.filter(text("/paused")).isEmpty());
    EXPECT_EQ(requests.filter(text(" Mozilla/5.0 (Macintosh; Intel Mac OS X 14_0) ")).size(),
              requests.size());
}

TEST_F(WatchTest, AnOutageIsToldOnceAndSoIsItsEnd)
{
    add({.monitor = webMonitor(text("Outage"), outage.url())});
    add({.monitor = webMonitor(text("Flaky"), shortLived.url())});
    program.writeMonitors(records());
    ASSERT_TRUE(daemon.start());
    ASSERT_TRUE(program.start());
    EXPECT_TRUE(waitFor([this] { return haveChecks(6); }, 30s));
    EXPECT_EQ(program.stop(), 0);

    QStringList shown = describe(daemon.closeAll());
    EXPECT_TRUE(takeMatch(shown, text("Outage is Down\\|HTTP 500\\|critical")));
    EXPECT_TRUE(takeMatch(shown, text("Outage is Back Up\\|Responding in \\d+ms\\|normal")));
    EXPECT_EQ(shown.join(QLatin1Char('\n')).toStdString(), "") << "single failures are chance";
}

TEST_F(WatchTest, AWakeChecksEverythingOnceMoreAtOnce)
{
    Monitor hourly = webMonitor(text("Hourly"), nginx.url(0, "/hourly"));
    hourly.interval = Seconds(3600);
    Monitor paused = webMonitor(text("Paused"), nginx.url(0, "/paused"));
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

TEST_F(WatchTest, ACheckUnderWayAtASleepIsDroppedForTheWakesOne)
{
    Monitor hanging = webMonitor(text("Hanging"), silent.url());
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
    // A host that isn't this computer by its text, and is reached all the same.
    program.setEnvironment(text("http_proxy"), QString::fromLatin1(nginx.url(0, "/")));
    const Monitor local = webMonitor(text("Local"), nginx.url(0, "/local"));
    const Monitor other = webMonitor(text("Other"), "http://other.test/");
    program.writeMonitors({local, other});
    ASSERT_TRUE(program.start());
    const auto count = [this](const Monitor &monitor) {
        return program.readChecks().value_or(QHash<QUuid, std::vector<Check>>())[monitor.id].size();
    };
    ASSERT_TRUE(waitFor([&] { return networkManager.questions() > 0 && count(local) >= 2; }));
    // The first check may have gone out before the answer was there.
    const auto before = count(other);
    EXPECT_TRUE(waitFor([&, before = count(local)] { return count(local) >= before + 3; }));
    EXPECT_EQ(count(other), before);

    networkManager.changeState(FakeNetworkManager::connectedGlobally);
    EXPECT_TRUE(waitFor([&] { return count(other) >= before + 2; }));
    EXPECT_EQ(program.stop(), 0);
    for (const Check &check : program.readChecks()->value(other.id))
        EXPECT_TRUE(check.isUp) << qPrintable(check.error.value_or(QString()));
}

TEST_F(WatchTest, ADaemonThatComesLateOrRestartsGetsWhatIsNew)
{
    add({.monitor = webMonitor(text("Missing"), nginx.url(0, "/404"))});
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
