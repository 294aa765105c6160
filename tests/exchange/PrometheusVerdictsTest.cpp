#include "CheckCommand.h"
#include "CurlNetwork.h"
#include "ExchangeSamples.h"
#include "ExportCommand.h"
#include "HostileBehaviours.h"
#include "HttpCheck.h"
#include "MetricsCommand.h"
#include "MonitorStore.h"
#include "NginxServer.h"
#include "Printers.h"
#include "PrometheusPrograms.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace ostrel::test {

namespace {

/// Runs real servers, and exports monitors of them.
class PrometheusVerdictsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const QStringList missing = missingPrometheusPrograms();
        if (!missing.isEmpty())
            GTEST_SKIP() << "not installed: " << qPrintable(missing.join(u", "_s))
                         << "; scripts/setup --prometheus installs them";
    }

    /// Adds a monitor of @p url that is expected to be up or down.
    Monitor &add(const QString &name, const QByteArray &url, bool isUp)
    {
        Monitor monitor = website(int(monitors.size()), QString::fromLatin1(url));
        monitor.name = name;
        monitor.interval = 2s;
        monitor.timeout = 1s;
        monitors.append(monitor);
        (isUp ? up : down).insert(name);
        return monitors.last();
    }
    void addPort(const QString &name, quint16 port, bool isUp)
    {
        Monitor &monitor = add(name, "127.0.0.1", isUp);
        monitor.type = MonitorType::port;
        monitor.port = port;
    }
    void addStatus(int status, bool isUp)
    {
        const QByteArray number = QByteArray::number(status);
        add(u"status "_s + QString::fromLatin1(number), statuses.url('/' + number), isUp);
    }
    void addKeyword(const QString &name, const QString &keyword, bool shouldExist, bool isUp)
    {
        Monitor &monitor = add(name, page.url(), isUp);
        monitor.keyword = keyword;
        monitor.keywordShouldExist = shouldExist;
    }
    void addMethod(HTTPMethod method, HTTPMethod wanted, bool isUp)
    {
        const QString name = rawValue(method) + u" where only "_s + rawValue(wanted) + u" is up"_s;
        add(name, methods.url('/' + rawValue(wanted).toLatin1()), isUp).method = method;
    }

    /// Writes the configuration for all monitors.
    void exportConfiguration()
    {
        {
            MonitorStore store(dataDir);
            for (const Monitor &monitor : monitors)
                store.addMonitor(monitor);
        }
        const ExportOutcome outcome =
            runExport({.dataDir = dataDir, .path = target, .format = ExportFormat::prometheus}, -1);
        EXPECT_EQ(outcome.exitCode, exitDone);
        EXPECT_TRUE(outcome.complaints.isEmpty()) << qPrintable(outcome.complaints.join(u'\n'));
    }

    void expectOwnVerdicts() const
    {
        for (const Monitor &monitor : monitors) {
            CurlNetwork network;
            // With as much time as a busy machine needs, unless there is none that would suffice.
            CheckInvocation invocation{.monitor = monitor};
            if (up.contains(monitor.name))
                invocation.monitor.timeout = 60s;
            EXPECT_EQ(runCheckOnce(invocation, network).isUp, up.contains(monitor.name))
                << qPrintable(monitor.name);
        }
    }

    /// The names of the series that @p expression returns.
    static QSet<QString> names(PrometheusPrograms &programs, const QString &expression)
    {
        QSet<QString> result;
        for (const auto &series : programs.query(expression))
            result.insert(series[u"metric"_s][u"name"_s].toString());
        return result;
    }
    /// Waits until @p expression returns the series of @p expected, and only those.
    static void expectSeries(PrometheusPrograms &programs, const QString &expression,
                             const QSet<QString> &expected)
    {
        QSet<QString> seen;
        const bool isAsExpected = waitFor([&] {
            seen = names(programs, expression);
            return seen == expected;
        });
        EXPECT_TRUE(isAsExpected) << qPrintable(expression) << "\nmissing: "
                                  << qPrintable((expected - seen).values().join(u", "_s))
                                  << "\nunexpected: "
                                  << qPrintable((seen - expected).values().join(u", "_s));
    }

    QTemporaryDir folder;
    const QString dataDir = folder.filePath(u"data"_s);
    const QString target = folder.filePath(u"target"_s);
    QList<Monitor> monitors;
    QSet<QString> up;
    QSet<QString> down;

    const HostileServer statuses{answerWithStatus};
    const HostileServer page{answerWith("Hello, <b>W\u00F6rld</b> (today)")};
    /// "/POST" is up for a POST only, and so on.
    const HostileServer methods{[](HostileConnection &connection, const SeenRequest &request) {
        const bool isWanted = request.target == '/' + request.method;
        connection.respond(isWanted ? "200 OK" : "405 Method Not Allowed");
    }};
    const HostileServer browsersOnly{[](HostileConnection &connection, const SeenRequest &request) {
        const bool isBrowser = request.header("User-Agent") == QByteArray(HttpCheck::userAgent);
        connection.respond(isBrowser ? "200 OK" : "503 Service Unavailable");
    }};
    const HostileServer redirects{countRedirectsDown};
    const HostileServer endlessRedirects{redirectEndlessly};
    const HostileServer silent{staySilent};
    const HostileServer garbage{sendGarbage};
    TestCertificates certificates;
    const NginxServer secure{{{.leaf = certificates.valid()},
                              {.leaf = certificates.validFor(std::chrono::hours(3 * 24))},
                              {.leaf = certificates.selfSigned()},
                              {.leaf = certificates.expired()}}};
};

} // namespace

TEST_F(PrometheusVerdictsTest, AreOstrels)
{
    ASSERT_TRUE(qputenv("SSL_CERT_FILE", certificates.authorityFile()));
    for (const int status : {200, 204, 304, 401, 403})
        addStatus(status, true);
    for (const int status : {400, 402, 404, 410, 429, 500, 503})
        addStatus(status, false);
    addKeyword(u"keyword present"_s, u"hello, <B>W"_s, true, true);
    addKeyword(u"keyword in other case"_s, u"(TODAY)"_s, true, true);
    addKeyword(u"keyword missing"_s, u"H.llo"_s, true, false);
    addKeyword(u"unwanted keyword missing"_s, u"Fatal [error]"_s, false, true);
    addKeyword(u"unwanted keyword present"_s, u"HELLO"_s, false, false);
    for (const HTTPMethod method : allHTTPMethods) {
        for (const HTTPMethod wanted : allHTTPMethods)
            addMethod(method, wanted, method == wanted);
    }
    add(u"browsers only"_s, browsersOnly.url(), true);
    add(u"redirects"_s, redirects.url("/3"), true);
    add(u"endless redirects"_s, endlessRedirects.url(), false);
    add(u"garbage"_s, garbage.url(), false);
    add(u"time-out"_s, silent.url(), false);
    addPort(u"open port"_s, silent.port(), true);
    addPort(u"closed port"_s, closedPort(), false);
    add(u"TLS"_s, secure.url(0), true);
    add(u"short-lived TLS"_s, secure.url(1), true);
    add(u"self-signed TLS"_s, secure.url(2), false);
    add(u"expired TLS"_s, secure.url(3), false);
    // No answer is that fast, and none that slow.
    add(u"slow"_s, page.url(), true).responseTimeThreshold = Milliseconds(0.001);
    add(u"fast"_s, page.url(), true).responseTimeThreshold = Milliseconds(1e6);
    add(u"slow and down"_s, statuses.url("/404"), false).responseTimeThreshold =
        Milliseconds(0.001);
    Monitor &quiet = add(u"down in silence"_s, statuses.url("/404"), false);
    quiet.notifyOnDown = false;
    expectOwnVerdicts();

    exportConfiguration();
    PrometheusPrograms programs(target);
    ASSERT_TRUE(programs.areReady());
    expectSeries(programs, u"last_over_time(probe_success[4s]) == 1"_s, up);
    expectSeries(programs, u"last_over_time(probe_success[4s]) == 0"_s, down);
    expectSeries(programs, u"ALERTS{alertname='MonitorDown'}"_s, down - QSet{quiet.name});
    expectSeries(programs, u"ALERTS{alertname='MonitorSlow'}"_s, {u"slow"_s});
    expectSeries(programs, u"ALERTS{alertname='CertificateExpires'}"_s, {u"short-lived TLS"_s});
}

TEST_F(PrometheusVerdictsTest, PromtoolAcceptsEveryFile)
{
    Monitor &foreign =
        add(u"A \"q\" \\ {{ .Broken }}\n\u202E%1"_s, "https://a.example/\"x\"", true);
    foreign.keyword = u"(\"[\\\n\x7F\u0085 {{ \U0001F600 - #"_s + QChar(0xD800);
    foreign.interval = 3600s;
    foreign.responseTimeThreshold = Milliseconds(0.1);
    add(u"other interval"_s, "https://b.example/", true).interval = 77.5s;
    monitors.last().timeout = 0.25s;
    addPort(u"port"_s, 22, true);
    {
        MonitorStore store(dataDir);
        for (const Monitor &monitor : monitors) {
            store.addMonitor(monitor);
            store.addCheck(checkAt(monitor, 1, true));
        }
    }
    const ExportOutcome outcome =
        runExport({.dataDir = dataDir, .path = target, .format = ExportFormat::prometheus}, -1);
    EXPECT_EQ(outcome.exitCode, exitDone);
    EXPECT_EQ(complaintOfPromtool({u"check"_s, u"config"_s, target + u"/prometheus.yml"_s}),
              std::nullopt);
    EXPECT_EQ(complaintOfPromtool({u"check"_s, u"rules"_s, target + u"/ostrel.rules.yml"_s}),
              std::nullopt);
    EXPECT_EQ(complaintOfPromtool({u"check"_s, u"metrics"_s},
                                  readMetrics({.dataDir = dataDir}).value_or("nothing")),
              std::nullopt);
    BoundProcess exporter;
    exporter.logTo(target + u"/exporter.log"_s);
    exporter.start(u"prometheus-blackbox-exporter"_s,
                   {u"--config.check"_s, u"--config.file="_s + target + u"/blackbox.yml"_s});
    EXPECT_TRUE(exporter.waitForFinished(-1));
    EXPECT_EQ(exporter.exitCode(), 0);
}

TEST_F(PrometheusVerdictsTest, PromtoolAcceptsWhatComesOfNoMonitors)
{
    exportConfiguration();
    EXPECT_EQ(complaintOfPromtool({u"check"_s, u"config"_s, target + u"/prometheus.yml"_s}),
              std::nullopt);
    EXPECT_EQ(complaintOfPromtool({u"check"_s, u"metrics"_s},
                                  readMetrics({.dataDir = dataDir}).value_or("nothing")),
              std::nullopt);
}

} // namespace ostrel::test
