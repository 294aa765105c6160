#include "ProbedMonitor.h"

#include "ExchangeSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace ostrel::test {

namespace {

/// A monitor of which everything has a counterpart.
Monitor plainMonitor()
{
    Monitor monitor = website(1, u"https://a.example/"_s);
    monitor.timeout = 10s;
    return monitor;
}

Monitor changed(const std::function<void(Monitor &)> &change)
{
    Monitor monitor = plainMonitor();
    change(monitor);
    return monitor;
}

} // namespace

TEST(ProbedMonitorTest, APlainMonitorHasACounterpart)
{
    const auto [probed, notes] = probeTranslation(plainMonitor());
    EXPECT_TRUE(notes.isEmpty());
    ASSERT_TRUE(probed);
    EXPECT_EQ(probed->target, u"https://a.example/"_s);
    EXPECT_EQ(probed->module, (ProbeModule{.timeout = 10s}));
    EXPECT_EQ(probed->interval, 60s);
    EXPECT_EQ(probed->scrapeTimeout, 11s);
}

TEST(ProbedMonitorTest, TargetsAreInAscii)
{
    const struct
    {
        QString url;
        QString target;
    } cases[] = {
        {u"https://b\u00FCcher.example/\u00E4 b?c#d"_s,
         u"https://xn--bcher-kva.example/%C3%A4%20b?c"_s},
        {u"http://[::1]:8080/"_s, u"http://[::1]:8080/"_s},
    };
    for (const auto &each : cases)
        EXPECT_EQ(probeTranslation(website(1, each.url)).probed->target, each.target);
    EXPECT_EQ(probeTranslation(portMonitor(1, u"::1"_s, 22)).probed->target, u"[::1]:22"_s);
}

TEST(ProbedMonitorTest, AProbeTakesTheCheckOver)
{
    const Monitor monitor = changed([](Monitor &m) {
        m.method = HTTPMethod::POST;
        m.keyword = u"error"_s;
        m.keywordShouldExist = false;
    });
    const ProbeModule module = probeTranslation(monitor).probed->module;
    EXPECT_EQ(module, (ProbeModule{.method = HTTPMethod::POST,
                                   .keyword = u"error"_s,
                                   .keywordShouldExist = false,
                                   .timeout = 10s}));
}

TEST(ProbedMonitorTest, APortHasNoMethodAndNoKeyword)
{
    Monitor monitor = portMonitor(1, u"db.example"_s, 5432);
    monitor.method = HTTPMethod::HEAD;
    monitor.keyword = u"left over"_s;
    monitor.keywordShouldExist = false;
    EXPECT_EQ(probeTranslation(monitor).probed->module,
              (ProbeModule{.type = MonitorType::port, .timeout = 30s}));
}

TEST(ProbedMonitorTest, WhatCannotBeProbedIsLeftOutAndTold)
{
    const struct
    {
        Monitor monitor;
        const char *note;
    } cases[] = {
        {changed([](Monitor &m) { m.isEnabled = false; }), "paused"},
        {changed([](Monitor &m) { m.url = u"ftp://a.example/"_s; }), "no address"},
        {changed([](Monitor &m) { m.url = u"a.example"_s; }), "no address"},
        {changed([](Monitor &m) { m.url = u""_s; }), "no address"},
        {changed([](Monitor &m) { m.timeout = 0s; }), "time-out of 0 s"},
        {changed([](Monitor &m) { m.timeout = -1s; }), "time-out of 0 s"},
        {portMonitor(1, u"db.example"_s, 0), "no address"},
        {portMonitor(1, u"db.example"_s, 65536), "no address"},
        {portMonitor(1, u""_s, 80), "no address"},
    };
    for (const auto &each : cases) {
        const auto [probed, notes] = probeTranslation(each.monitor);
        EXPECT_FALSE(probed) << each.note;
        ASSERT_EQ(notes.size(), 1) << each.note;
        EXPECT_TRUE(notes[0].contains(QLatin1String(each.note))) << qPrintable(notes[0]);
        EXPECT_TRUE(notes[0].contains(u"left out"_s)) << qPrintable(notes[0]);
    }
}

TEST(ProbedMonitorTest, WhatDiffersIsTold)
{
    const struct
    {
        Monitor monitor;
        const char *note;
    } cases[] = {
        {changed([](Monitor &m) { m.timeout = 60s; }), "given up after 59.5 s instead of 60 s"},
        {changed([](Monitor &m) { m.interval = 0.5s; }), "checked every 1 s"},
        {changed([](Monitor &m) { m.interval = Seconds(1e300); }), "checked every"},
        {changed([](Monitor &m) { m.keyword = u"\u00FCber"_s; }), "keyword beyond ASCII"},
        {changed([](Monitor &m) { m.notifyOnRecovery = false; }), "send_resolved"},
    };
    for (const auto &each : cases) {
        const auto [probed, notes] = probeTranslation(each.monitor);
        EXPECT_TRUE(probed) << each.note;
        EXPECT_TRUE(notes.join(u'\n').contains(QLatin1String(each.note)))
            << each.note << ": " << qPrintable(notes.join(u'\n'));
    }
}

TEST(ProbedMonitorTest, AProbeNeverOutlivesItsInterval)
{
    for (const double timeout : {0.5, 1.0, 59.0, 59.5, 60.0, 1e9}) {
        const Monitor monitor = changed([&](Monitor &m) { m.timeout = Seconds(timeout); });
        const auto [probed, notes] = probeTranslation(monitor);
        ASSERT_TRUE(probed);
        EXPECT_LE(probed->scrapeTimeout, probed->interval);
        EXPECT_EQ(notes.isEmpty(), timeout <= 59.5) << timeout;
    }
}

} // namespace ostrel::test
