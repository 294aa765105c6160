#include "MonitorOptions.h"

#include "Invocation.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

Monitor website()
{
    Monitor monitor{.id = QUuid::createUuid(), .name = u"Shop"_s, .url = u"https://shop.example"_s};
    monitor.method = HTTPMethod::POST;
    monitor.interval = Seconds(7.5);
    monitor.keyword = u"OK"_s;
    monitor.responseTimeThreshold = Milliseconds(12.5);
    monitor.isEnabled = false;
    monitor.sslExpiryWarningDays = 3;
    return monitor;
}

Monitor database()
{
    Monitor monitor{.id = QUuid::createUuid(), .url = u"db.local"_s};
    monitor.type = MonitorType::port;
    monitor.port = 5432;
    return monitor;
}

Monitor added(const MonitorOptions &options)
{
    const auto result = newMonitorFrom(options, {});
    EXPECT_TRUE(std::holds_alternative<Monitor>(result));
    return std::get<Monitor>(result);
}

Monitor edited(const Monitor &monitor, const MonitorOptions &options)
{
    const auto result = withOptions(monitor, options);
    EXPECT_TRUE(std::holds_alternative<Monitor>(result));
    return std::get<Monitor>(result);
}

} // namespace

TEST(MonitorOptionsTest, AnAddressIsTakenAsByTheForm)
{
    const struct
    {
        const char *typed;
        const char *url;
        const char *name;
        std::optional<qint64> port = {};
    } cases[] = {
        {"example.com", "https://example.com", "example.com"},
        {" www.example.com/a ", "https://www.example.com/a", "example.com"},
        {"http://localhost:3000", "http://localhost:3000", "localhost"},
        {"localhost:8080", "localhost", "localhost:8080", 8080},
    };
    for (const auto &each : cases) {
        const Monitor monitor = added({.address = QString::fromLatin1(each.typed)});
        EXPECT_EQ(monitor.url, QString::fromLatin1(each.url)) << each.typed;
        EXPECT_EQ(monitor.name, QString::fromLatin1(each.name)) << each.typed;
        EXPECT_EQ(monitor.port, each.port) << each.typed;
        EXPECT_EQ(monitor.type, each.port ? MonitorType::port : MonitorType::http) << each.typed;
    }
}

TEST(MonitorOptionsTest, ANewMonitorHasTheFormsDefaults)
{
    const Monitor monitor = added({.address = u"example.com"_s});
    EXPECT_FALSE(monitor.id.isNull());
    EXPECT_EQ(monitor.interval, Seconds(300));
    EXPECT_EQ(monitor.timeout, Seconds(30));
    EXPECT_EQ(monitor.method, HTTPMethod::GET);
    EXPECT_FALSE(monitor.keyword);
    EXPECT_FALSE(monitor.responseTimeThreshold);
    EXPECT_TRUE(monitor.isEnabled);
}

TEST(MonitorOptionsTest, ANewMonitorTakesItsOptions)
{
    const Monitor monitor = added({.name = u"Shop"_s,
                                   .address = u"example.com"_s,
                                   .interval = Seconds(0.5),
                                   .method = HTTPMethod::HEAD,
                                   .timeout = Seconds(2),
                                   .keyword = u" OK "_s,
                                   .keywordShouldExist = false,
                                   .threshold = Milliseconds(0.25)});
    EXPECT_EQ(monitor.name, u"Shop"_s);
    EXPECT_EQ(monitor.interval, Seconds(0.5));
    EXPECT_EQ(monitor.method, HTTPMethod::HEAD);
    EXPECT_EQ(monitor.timeout, Seconds(2));
    EXPECT_EQ(monitor.keyword, u" OK "_s);
    EXPECT_FALSE(monitor.keywordShouldExist);
    EXPECT_EQ(monitor.responseTimeThreshold, Milliseconds(0.25));
}

TEST(MonitorOptionsTest, WithAPortTheAddressIsAHost)
{
    const Monitor monitor = added({.address = u"localhost"_s, .port = 22});
    EXPECT_EQ(monitor.type, MonitorType::port);
    EXPECT_EQ(monitor.url, u"localhost"_s);
    EXPECT_EQ(monitor.port, 22);
}

TEST(MonitorOptionsTest, WithoutOptionsNothingChanges)
{
    EXPECT_EQ(edited(website(), {}).keyword, u"OK"_s);
    for (const Monitor &monitor : {website(), database()})
        EXPECT_EQ(edited(monitor, {}), monitor);
}

TEST(MonitorOptionsTest, AnEditChangesItsOptionsAlone)
{
    const Monitor before = website();
    Monitor after = before;
    after.name = u"Store"_s;
    after.timeout = Seconds(4);
    EXPECT_EQ(edited(before, {.name = u"Store"_s, .timeout = Seconds(4)}), after);
}

TEST(MonitorOptionsTest, AKeywordAndAThresholdCanGo)
{
    const Monitor monitor = edited(website(), {.keyword = QString(), .threshold = Milliseconds(0)});
    EXPECT_FALSE(monitor.keyword);
    EXPECT_FALSE(monitor.responseTimeThreshold);
}

TEST(MonitorOptionsTest, AnAddressChangesTheKindOfMonitor)
{
    const Monitor port = edited(website(), {.address = u"db.local:5432"_s});
    EXPECT_EQ(port.type, MonitorType::port);
    EXPECT_EQ(port.port, 5432);
    EXPECT_EQ(port.url, u"db.local"_s);
    EXPECT_EQ(port.name, u"Shop"_s);

    const Monitor web = edited(database(), {.address = u"example.com"_s});
    EXPECT_EQ(web.type, MonitorType::http);
    EXPECT_EQ(web.url, u"https://example.com"_s);
    EXPECT_FALSE(web.port);
    EXPECT_EQ(edited(database(), {.port = 22}).port, 22);
}

TEST(MonitorOptionsTest, WhatDoesNotGoTogetherIsTold)
{
    Monitor plain = website();
    plain.keyword.reset();
    const QString noKeyword = u"--keyword-absent and --keyword-present need a keyword."_s;
    const struct
    {
        Monitor monitor;
        MonitorOptions options;
        QString complaint;
    } cases[] = {
        {website(), {.port = 80}, u"--port needs the address of a host."_s},
        {website(), {.address = QString()}, u"The address is empty."_s},
        {website(),
         {.address = u"localhost"_s},
         u"'localhost' is no web address and no HOST:PORT. A web address begins with https:// or "
         "http://."_s},
        {website(),
         {.address = u"db:5432"_s, .keyword = u"x"_s},
         u"--keyword doesn't go with a port."_s},
        {database(), {.method = HTTPMethod::GET}, u"--method doesn't go with a port."_s},
        {database(), {.threshold = Milliseconds(5)}, u"--threshold doesn't go with a port."_s},
        {plain, {.keywordShouldExist = false}, noKeyword},
        {website(), {.keyword = QString(), .keywordShouldExist = true}, noKeyword},
    };
    for (const auto &each : cases) {
        const auto result = withOptions(each.monitor, each.options);
        const auto *complaint = std::get_if<QString>(&result);
        ASSERT_TRUE(complaint) << qPrintable(each.complaint);
        EXPECT_EQ(*complaint, each.complaint);
    }
}

} // namespace ostrel::test
