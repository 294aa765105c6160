#include "OpenMetrics.h"

#include "ExchangeSamples.h"
#include "MonitorStore.h"
#include "Printers.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// Half an hour after the new year of the samples.
Timestamp halfPast()
{
    return std::chrono::sys_days(std::chrono::year(2026) / 1 / 1) + std::chrono::minutes(30);
}

QByteArray metricsOf(const QList<Monitor> &monitors, const QList<Check> &checks = {})
{
    const QTemporaryDir folder;
    const MonitorStore store(folder.path(), recordsOf(monitors, checks),
                             {.access = MonitorStore::Access::readOnly, .now = halfPast});
    return openMetrics(store);
}

/// The lines of @p text that are samples of @p metric, without its name.
QByteArrayList samplesOf(const QByteArray &metric, const QByteArray &text)
{
    QByteArrayList samples;
    for (const QByteArray &line : text.split('\n')) {
        if (line.startsWith(metric + '{'))
            samples += line.sliced(metric.size());
    }
    return samples;
}

constexpr char labels[] = "{id=\"00000000-0000-4000-8000-000000000001\",name=\"a.example\","
                          "address=\"https://a.example/\",type=\"http\"";

} // namespace

TEST(OpenMetricsTest, EndsWithTheMarkOfTheEnd)
{
    EXPECT_TRUE(metricsOf({}).endsWith("\n# EOF\n"));
}

TEST(OpenMetricsTest, TellsTheLastCheckOfAMonitor)
{
    const Monitor monitor = website(1, u"https://a.example/"_s);
    Check check = checkAt(monitor, 2, true);
    check.responseTime = 12.5;
    check.sslExpiresAt = check.timestamp + std::chrono::hours(1);
    const QByteArray text = metricsOf({monitor}, {checkAt(monitor, 1, false), check});
    const struct
    {
        const char *metric;
        const char *value;
    } cases[] = {
        {"ostrel_monitor_enabled", "1"},
        {"ostrel_monitor_up", "1"},
        {"ostrel_monitor_response_time_seconds", "0.0125"},
        {"ostrel_monitor_last_check_timestamp_seconds", "1767225720"},
        {"ostrel_monitor_certificate_expiry_timestamp_seconds", "1767229320"},
        {"ostrel_monitor_history_checks", "2"},
    };
    for (const auto &each : cases)
        EXPECT_EQ(samplesOf(each.metric, text),
                  QByteArrayList{QByteArray(labels) + "} " + each.value})
            << each.metric;
}

TEST(OpenMetricsTest, TellsTheUptimeOfEachPeriod)
{
    const Monitor monitor = website(1, u"https://a.example/"_s);
    Check old = checkAt(monitor, 0, false);
    old.timestamp -= std::chrono::hours(48);
    const QByteArray text = metricsOf({monitor}, {old, checkAt(monitor, 1, true)});
    EXPECT_EQ(samplesOf("ostrel_monitor_uptime_ratio", text),
              (QByteArrayList{QByteArray(labels) + ",window=\"24h\"} 1",
                              QByteArray(labels) + ",window=\"7d\"} 0.5",
                              QByteArray(labels) + ",window=\"30d\"} 0.5"}));
}

TEST(OpenMetricsTest, WhatIsNotKnownHasNoSample)
{
    Monitor monitor = portMonitor(1, u"db.example"_s, 5432);
    monitor.isEnabled = false;
    const QByteArray text = metricsOf({monitor});
    EXPECT_EQ(samplesOf("ostrel_monitor_enabled", text).size(), 1);
    EXPECT_TRUE(samplesOf("ostrel_monitor_enabled", text)[0].endsWith("type=\"port\"} 0"));
    EXPECT_TRUE(samplesOf("ostrel_monitor_up", text).isEmpty());
    EXPECT_TRUE(samplesOf("ostrel_monitor_response_time_seconds", text).isEmpty());
    const QByteArray checked = metricsOf({monitor}, {checkAt(monitor, 1, false)});
    EXPECT_TRUE(samplesOf("ostrel_monitor_up", checked)[0].endsWith("} 0"));
    EXPECT_TRUE(
        samplesOf("ostrel_monitor_certificate_expiry_timestamp_seconds", checked).isEmpty());
}

TEST(OpenMetricsTest, LabelsAreEscaped)
{
    Monitor monitor = website(1, u"https://a.example/"_s);
    monitor.name = u"a\\b \"c\"\nd \u00FC"_s;
    EXPECT_TRUE(metricsOf({monitor}).contains(u"name=\"a\\\\b \\\"c\\\"\\nd \u00FC\","_s.toUtf8()));
}

TEST(OpenMetricsTest, NoTwoSamplesHaveTheSameLabels)
{
    const Monitor monitor = website(1, u"https://a.example/"_s);
    EXPECT_EQ(samplesOf("ostrel_monitor_enabled", metricsOf({monitor, monitor})).size(), 1);
}

} // namespace ostrel::test
