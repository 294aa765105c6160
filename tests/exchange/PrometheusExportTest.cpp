#include "PrometheusExport.h"

#include "ExchangeSamples.h"
#include "Printers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace ostrel::test {

namespace {

Monitor timely(Monitor monitor)
{
    monitor.timeout = 10s;
    return monitor;
}

QJsonArray targetsIn(const PrometheusConfiguration &configuration, const QString &job)
{
    const QByteArray json = configuration.files.value(u"targets/"_s + job + u".json"_s);
    return QJsonDocument::fromJson(json).array();
}

bool has(const PrometheusConfiguration &configuration, const char *file, const QByteArray &text)
{
    return configuration.files.value(QLatin1String(file)).contains(text);
}

} // namespace

TEST(PrometheusExportTest, TargetsOfOneIntervalAndTimeoutShareAJob)
{
    Monitor slow = timely(website(2, u"https://b.example/"_s));
    slow.interval = 300s;
    const auto configuration =
        prometheusConfiguration({timely(website(1, u"https://a.example/"_s)), slow,
                                 timely(portMonitor(3, u"db.example"_s, 5432))});
    EXPECT_TRUE(configuration.notes.isEmpty());
    const QJsonArray targets = targetsIn(configuration, u"ostrel-every-60s-within-11s"_s);
    ASSERT_EQ(targets.size(), 2);
    EXPECT_EQ(targets[0][u"targets"_s].toArray(), QJsonArray{u"https://a.example/"_s});
    EXPECT_EQ(targets[1][u"targets"_s].toArray(), QJsonArray{u"db.example:5432"_s});
    EXPECT_EQ(targetsIn(configuration, u"ostrel-every-300s-within-11s"_s).size(), 1);
    EXPECT_TRUE(has(configuration, "prometheus.yml",
                    "  - job_name: ostrel-every-300s-within-11s\n"
                    "    scrape_interval: 300s\n"
                    "    scrape_timeout: 11s\n"));
}

TEST(PrometheusExportTest, ATargetsLabelsSayWhatItIsAndHowItIsChecked)
{
    Monitor monitor = timely(website(1, u"https://a.example/"_s));
    monitor.name = u"My\nsite"_s;
    monitor.responseTimeThreshold = Milliseconds(450);
    const QJsonArray targets =
        targetsIn(prometheusConfiguration({monitor}), u"ostrel-every-60s-within-11s"_s);
    EXPECT_EQ(targets[0][u"labels"_s].toObject(),
              (QJsonObject{{u"__param_module"_s, u"http_get_10s"_s},
                           {u"name"_s, u"My site"_s},
                           {u"ostrel_id"_s, u"00000000-0000-4000-8000-000000000001"_s},
                           {u"ostrel_interval"_s, u"60s"_s},
                           {u"ostrel_notify_down"_s, u"true"_s},
                           {u"ostrel_threshold_ms"_s, u"450"_s},
                           {u"ostrel_certificate_days"_s, u"14"_s}}));
}

TEST(PrometheusExportTest, AnAlertIsOnlyForTargetsThatWantIt)
{
    Monitor site = timely(website(1, u"https://a.example/"_s));
    site.notifyOnDown = false;
    site.sslExpiryWarningDays = -1;
    Monitor port = timely(portMonitor(2, u"db.example"_s, 5432));
    port.notifyOnDown = false;
    port.responseTimeThreshold = Milliseconds(1);
    const auto configuration = prometheusConfiguration({site, port});
    EXPECT_TRUE(has(configuration, "ostrel.rules.yml", "rules: []\n"));
}

TEST(PrometheusExportTest, AlertsSayWhatOstrelNotifiesOf)
{
    Monitor monitor = timely(website(1, u"https://a.example/"_s));
    monitor.responseTimeThreshold = Milliseconds(450);
    const auto configuration = prometheusConfiguration({monitor});
    for (const char *expression :
         {"(sum_over_time(probe_success{ostrel_interval=\\\"60s\\\",ostrel_notify_down="
          "\\\"true\\\"}"
          "[120s]) == 0 and count_over_time(probe_success{ostrel_interval=\\\"60s\\\","
          "ostrel_notify_down=\\\"true\\\"}[120s]) >= 2) or (sum_over_time(",
          "last_over_time(probe_duration_seconds{ostrel_interval=\\\"60s\\\","
          "ostrel_threshold_ms=\\\"450\\\"}[120s]) > 0.45 and ",
          "last_over_time(probe_ssl_earliest_cert_expiry{ostrel_interval=\\\"60s\\\","
          "ostrel_certificate_days=\\\"14\\\"}[120s]) - time() < 1296000 and "})
        EXPECT_TRUE(has(configuration, "ostrel.rules.yml", expression)) << expression;
}

TEST(PrometheusExportTest, EqualProbesAreOneModule)
{
    Monitor first = timely(website(1, u"https://a.example/"_s));
    first.keyword = u"a.b"_s;
    Monitor second = first;
    second.id = website(2, {}).id;
    Monitor third = timely(website(3, u"https://c.example/"_s));
    third.keyword = u"\"quoted\""_s;
    const auto configuration = prometheusConfiguration({first, second, third});
    const QByteArray modules = configuration.files.value(u"blackbox.yml"_s);
    EXPECT_EQ(modules.count("prober: http"), 2);
    EXPECT_TRUE(modules.contains("  http_get_10s_keyword_1:\n"));
    EXPECT_TRUE(modules.contains("fail_if_body_not_matches_regexp:\n"
                                 "        - \"(?i)a\\\\.b\"\n"));
    EXPECT_TRUE(modules.contains("        - \"(?i)\\\"quoted\\\"\"\n"));
}

TEST(PrometheusExportTest, WhatHasNoCounterpartIsToldByName)
{
    Monitor paused = timely(website(1, u"https://a.example/"_s));
    paused.isEnabled = false;
    paused.name = u"A %1\nB"_s;
    const auto configuration = prometheusConfiguration({paused});
    ASSERT_EQ(configuration.notes.size(), 1);
    EXPECT_TRUE(configuration.notes[0].startsWith(u"A %1 B: is paused"_s))
        << qPrintable(configuration.notes[0]);
}

TEST(PrometheusExportTest, EachIdCountsOnce)
{
    const auto configuration = prometheusConfiguration(
        {timely(website(1, u"https://a.example/"_s)), timely(website(1, u"https://b.example/"_s))});
    const QJsonArray targets = targetsIn(configuration, u"ostrel-every-60s-within-11s"_s);
    ASSERT_EQ(targets.size(), 1);
    EXPECT_EQ(targets[0][u"targets"_s].toArray(), QJsonArray{u"https://a.example/"_s});
}

TEST(PrometheusExportTest, WithoutMonitorsTheFilesAreThere)
{
    const auto configuration = prometheusConfiguration({});
    EXPECT_EQ(configuration.files.keys(),
              (QStringList{u"README.md"_s, u"blackbox.yml"_s, u"ostrel.rules.yml"_s,
                           u"prometheus.yml"_s}));
}

} // namespace ostrel::test
