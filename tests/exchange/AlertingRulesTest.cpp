#include "AlertingRules.h"

#include "ExchangeSamples.h"
#include "NotificationRules.h"
#include "Printers.h"
#include "PrometheusPrograms.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTimeZone>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace ostrel::test {

namespace {

/// Lets promtool evaluate the rules of one monitor, and compares the alerts with Ostrel's
/// notifications.
class AlertingRulesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const QStringList missing = missingPrometheusPrograms();
        if (!missing.isEmpty())
            GTEST_SKIP() << "not installed: " << qPrintable(missing.join(u", "_s))
                         << "; scripts/setup --prometheus installs them";
        monitor.timeout = 10s;
        monitor.responseTimeThreshold = Milliseconds(450);
    }

    [[nodiscard]] QJsonObject labels() const
    {
        QJsonObject all = ruleLabels(*probeTranslation(monitor).probed);
        all.insert(u"name"_s, u"A"_s);
        all.insert(u"instance"_s, monitor.url);
        return all;
    }
    /// A series of @p metric with one of @p values each minute.
    void addSeries(const QString &metric, const QStringList &values)
    {
        QStringList pairs;
        const QJsonObject all = labels();
        for (auto label = all.begin(); label != all.end(); ++label)
            pairs += label.key() + u"=\""_s + label.value().toString() + u'"';
        series.append(QJsonObject{{u"series"_s, metric + u'{' + pairs.join(u',') + u'}'},
                                  {u"values"_s, values.join(u' ')}});
    }
    /// Expects, half a minute after the sample @p minute, the alert @p name or, if @p summary is
    /// empty, its absence.
    void expectAlert(const QString &name, int minute, const QString &summary,
                     const QString &severity)
    {
        expectAlertAt(name, minute * 60 + 30, summary, severity);
    }
    void expectAlertAt(const QString &name, int second, const QString &summary,
                       const QString &severity)
    {
        QJsonObject all = labels();
        all.insert(u"severity"_s, severity);
        const QJsonObject alert{{u"exp_labels"_s, all},
                                {u"exp_annotations"_s, QJsonObject{{u"summary"_s, summary}}}};
        alerts.append(
            QJsonObject{{u"eval_time"_s, QString::number(second) + u's'},
                        {u"alertname"_s, name},
                        {u"exp_alerts"_s, summary.isEmpty() ? QJsonArray() : QJsonArray{alert}}});
    }
    void evaluate() const
    {
        write(u"rules.yml"_s, alertingRules({*probeTranslation(monitor).probed}));
        const QJsonObject test{
            {u"interval"_s, u"60s"_s}, {u"input_series"_s, series}, {u"alert_rule_test"_s, alerts}};
        const QJsonObject all{{u"rule_files"_s, QJsonArray{u"rules.yml"_s}},
                              {u"evaluation_interval"_s, u"15s"_s},
                              {u"tests"_s, QJsonArray{test}}};
        write(u"test.yml"_s, QJsonDocument(all).toJson());
        const auto complaint =
            complaintOfPromtool({u"test"_s, u"rules"_s, folder.filePath(u"test.yml"_s)});
        EXPECT_EQ(complaint, std::nullopt) << qPrintable(complaint.value_or(QString()));
    }
    void write(const QString &name, const QByteArray &text) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir folder;
    Monitor monitor = website(1, u"https://a.example/"_s);
    QJsonArray series;
    QJsonArray alerts;
};

} // namespace

TEST_F(AlertingRulesTest, DownIsTheSecondFailureInARow)
{
    QStringList values;
    qint64 failures = 0;
    bool isDown = false;
    const std::string_view results = "0110100011001010000110";
    for (std::size_t i = 0; i < results.size(); ++i) {
        const bool isUp = results[i] == '1';
        const auto due =
            dueNotifications(monitor, checkAt(monitor, int(i), isUp), failures, QTimeZone::utc());
        isDown = due.down || (isDown && !due.recovery);
        failures = isUp ? 0 : failures + 1;
        values += isUp ? u"1"_s : u"0"_s;
        expectAlert(u"MonitorDown"_s, int(i),
                    isDown ? u"A is down: https://a.example/"_s : QString(), u"critical"_s);
    }
    addSeries(u"probe_success"_s, values);
    evaluate();
}

TEST_F(AlertingRulesTest, DownLastsWhileAProbeIsUnderWay)
{
    // Four minutes in, the sample of that minute isn't there for half a minute.
    monitor.timeout = 30s;
    addSeries(u"probe_success"_s, {u"1"_s, u"0"_s, u"0"_s, u"0"_s});
    for (const int second : {210, 240, 255, 270})
        expectAlertAt(u"MonitorDown"_s, second, u"A is down: https://a.example/"_s, u"critical"_s);
    evaluate();
}

TEST_F(AlertingRulesTest, SlowIsMoreThanTheThresholdOfAnAnswerThatIsUp)
{
    const struct
    {
        bool isUp;
        double responseTime;
        const char *shown;
    } cases[] = {
        {true, 449, ""},    {true, 450, ""},   {true, 450.5, "450.5ms"},
        {true, 9000, "9s"}, {false, 9000, ""}, {true, 1, ""},
    };
    QStringList successes;
    QStringList durations;
    int minute = 0;
    for (const auto &each : cases) {
        Check check = checkAt(monitor, minute, each.isUp);
        check.statusCode = 200;
        check.responseTime = each.responseTime;
        ASSERT_EQ(isSlow(monitor, check), *each.shown != '\0');
        successes += each.isUp ? u"1"_s : u"0"_s;
        durations += QString::number(each.responseTime / 1000, 'g', 17);
        const QString summary = u"A took "_s + QLatin1String(each.shown);
        expectAlert(u"MonitorSlow"_s, minute, *each.shown == '\0' ? QString() : summary,
                    u"warning"_s);
        ++minute;
    }
    addSeries(u"probe_success"_s, successes);
    addSeries(u"probe_duration_seconds"_s, durations);
    evaluate();
}

TEST_F(AlertingRulesTest, ACertificateIsToldFromItsNumberOfWholeDaysOn)
{
    constexpr qint64 day = 24 * 60 * 60;
    const struct
    {
        qint64 secondsLeft; ///< At the evaluation.
        const char *shown;
    } cases[] = {
        {15 * day + 1, ""},   {15 * day, ""}, {15 * day - 1, "14d 23h 59m 59s"},
        {day, "1d 0h 0m 0s"}, {0, "0s"},
    };
    QStringList expiries;
    QStringList codes;
    int minute = 0;
    for (const auto &each : cases) {
        Check check = checkAt(monitor, minute, true);
        check.statusCode = 200;
        check.sslExpiresAt = check.timestamp + std::chrono::seconds(each.secondsLeft);
        const auto due = dueNotifications(monitor, check, 0, QTimeZone::utc());
        ASSERT_EQ(due.certificateDays.has_value(), *each.shown != '\0') << each.secondsLeft;
        expiries += QString::number(minute * 60 + 30 + each.secondsLeft);
        codes += u"200"_s;
        const QString summary = u"The certificate of A expires in "_s + QLatin1String(each.shown);
        expectAlert(u"CertificateExpires"_s, minute, *each.shown == '\0' ? QString() : summary,
                    u"warning"_s);
        ++minute;
    }
    addSeries(u"probe_ssl_earliest_cert_expiry"_s, expiries);
    addSeries(u"probe_http_status_code"_s, codes);
    evaluate();
}

} // namespace ostrel::test
