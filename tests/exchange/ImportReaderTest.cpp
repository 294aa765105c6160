#include "ImportReader.h"

#include "AddressList.h"
#include "CheckedAddress.h"
#include "ExchangeSamples.h"
#include "JsonExport.h"
#include "MonitorJson.h"
#include "Printers.h"
#include "PrometheusExport.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

constexpr Timestamp now = std::chrono::sys_days(std::chrono::year(2026) / 2 / 3);

ImportContent read(const QByteArray &text)
{
    return readImport(text, now);
}

/// The addresses that @p text offers; fails if there is a problem.
QStringList addressesIn(const QByteArray &text)
{
    const ImportContent content = read(text);
    EXPECT_TRUE(content.problems.isEmpty()) << qPrintable(content.problems.join(u'\n'));
    QStringList addresses;
    for (const ImportedMonitor &imported : content.monitors)
        addresses += checkedAddress(imported.monitor);
    return addresses;
}

/// The problems of @p text, which must have some.
QString problemsOf(const QByteArray &text)
{
    const ImportContent content = read(text);
    EXPECT_FALSE(content.problems.isEmpty()) << text.toStdString();
    return content.problems.join(u'\n');
}

QByteArray exported(const StoredRecords &records)
{
    return written([&](ContentWriter &content) {
        appendJsonExport(records, ExportedHistory::included, now, content);
    });
}

} // namespace

TEST(AddressListTest, ReadsAnAddressPerLine)
{
    EXPECT_EQ(addressesIn("https://a.example/\n"
                          "# a comment\n"
                          "\n"
                          "  b.example  \r\n"
                          "   # another\n"
                          "db.example:5432\n"
                          "[::1]:22\n"
                          "http://[::1]:8080/"),
              (QStringList{u"https://a.example/"_s, u"https://b.example"_s, u"db.example:5432"_s,
                           u"[::1]:22"_s, u"http://[::1]:8080/"_s}));
}

TEST(AddressListTest, AMonitorIsMadeAsByTheForm)
{
    const Monitor site = *monitorOfAddress(u"www.shop.example/cart"_s, now);
    EXPECT_EQ(site.url, u"https://www.shop.example/cart"_s);
    EXPECT_EQ(site.name, u"shop.example"_s);
    EXPECT_EQ(site.interval, Seconds(300));
    EXPECT_EQ(site.createdAt, now);
    EXPECT_TRUE(site.isEnabled);
    const Monitor port = *monitorOfAddress(u"db.example:5432"_s, now);
    EXPECT_EQ(port.type, MonitorType::port);
    EXPECT_EQ(port.url, u"db.example"_s);
    EXPECT_EQ(port.port, 5432);
    EXPECT_EQ(port.name, u"db.example:5432"_s);
}

TEST(AddressListTest, TextBehindATabIsTheName)
{
    const ImportContent content = read("a.example\t My site \nb.example\t\nc.example\tC\td\n");
    ASSERT_EQ(content.monitors.size(), 3);
    EXPECT_EQ(content.monitors[0].monitor.name, u"My site"_s);
    EXPECT_EQ(content.monitors[1].monitor.name, u"b.example"_s);
    EXPECT_EQ(content.monitors[2].monitor.name, u"C\td"_s);
    EXPECT_FALSE(content.monitors[0].hasIdentity);
}

TEST(AddressListTest, EveryUnusableLineIsNamed)
{
    for (const char *line : {"nonsense", "ftp://a.example/", "[::1]:0", "[::1]:65536", "a b",
                             "https://", ":22", "\tname only"}) {
        const QString problem = problemsOf("a.example\n" + QByteArray(line));
        EXPECT_TRUE(problem.startsWith(u"line 2: '"_s)) << line << qPrintable(problem);
        EXPECT_FALSE(problem.contains(u'\n')) << line;
    }
}

TEST(ImportReaderTest, AnEmptyFileOffersNothing)
{
    for (const char *text : {"", "\n\n", "# only a comment", "[]", " [ ] "})
        EXPECT_TRUE(addressesIn(text).isEmpty()) << text;
}

TEST(ImportReaderTest, AByteOrderMarkIsPassedOver)
{
    EXPECT_EQ(addressesIn("\xEF\xBB\xBF"
                          "a.example"),
              QStringList{u"https://a.example"_s});
    EXPECT_EQ(addressesIn("\xEF\xBB\xBF[{\"targets\":[\"a.example\"]}]"),
              QStringList{u"https://a.example"_s});
}

TEST(ImportReaderTest, OnlyUtf8IsRead)
{
    EXPECT_EQ(problemsOf("a.example\xFF"), u"the file isn't UTF-8"_s);
    EXPECT_EQ(problemsOf("a.example\tGr\xFC"
                         "n"),
              u"the file isn't UTF-8"_s);
}

TEST(ImportReaderTest, BrokenJsonIsAProblemOfItsLine)
{
    for (const char *text : {"{\n\"format\"", "[\n{\"targets\":", "[{}\n,,", "{}\n}"})
        EXPECT_TRUE(problemsOf(text).startsWith(u"line 2: not JSON: "_s))
            << text << qPrintable(problemsOf(text));
}

TEST(ImportReaderTest, ReadsBackWhatWasExported)
{
    Monitor full = website(1, u"https://a.example/\u00E4"_s);
    full.name = u"A \"b\"\n\u00FC"_s;
    full.keyword = u"welcome"_s;
    full.responseTimeThreshold = Milliseconds(450.5);
    full.isEnabled = false;
    const Monitor port = portMonitor(2, u"db.example"_s, 5432);
    const QList<Check> checks = {checkAt(full, 1, true), checkAt(full, 2, false)};
    const ImportContent content = read(exported(recordsOf({full, port}, checks)));
    EXPECT_TRUE(content.problems.isEmpty());
    EXPECT_TRUE(content.notes.isEmpty());
    ASSERT_EQ(content.monitors.size(), 2);
    EXPECT_EQ(content.monitors[0].monitor, full);
    EXPECT_EQ(content.monitors[1].monitor, port);
    EXPECT_TRUE(content.monitors[0].hasIdentity);
    EXPECT_EQ(QList<Check>(content.monitors[0].checks.begin(), content.monitors[0].checks.end()),
              checks);
    EXPECT_TRUE(content.monitors[1].checks.empty());
}

TEST(ImportReaderTest, ReadsTheFileOfMonitors)
{
    const Monitor monitor = website(1, u"https://a.example/"_s);
    const ImportContent content = read(encodeMonitors({monitor}));
    EXPECT_TRUE(content.problems.isEmpty());
    ASSERT_EQ(content.monitors.size(), 1);
    EXPECT_EQ(content.monitors[0].monitor, monitor);
}

TEST(ImportReaderTest, WhatIsNoExportIsAProblem)
{
    const struct
    {
        const char *text;
        const char *problem;
    } cases[] = {
        {"{}", "isn't an export"},
        {R"({"format":"other","version":1,"monitors":[]})", "isn't an export"},
        {R"({"format":"ostrel","version":2,"monitors":[]})", "version"},
        {R"({"format":"ostrel","monitors":[]})", "version"},
        {R"({"format":"ostrel","version":1})", "no list of monitors"},
        {R"({"format":"ostrel","version":1,"monitors":{}})", "no list of monitors"},
        {R"({"format":"ostrel","version":1,"monitors":[],"checks":[]})", "aren't an object"},
        {R"({"format":"ostrel","version":1,"monitors":[1]})", "monitor 1: a member is missing"},
        {R"({"format":"ostrel","version":1,"monitors":[{"name":"a"}]})", "monitor 1: a member"},
        {R"({"format":"ostrel","version":1,"monitors":[],"checks":{"x":[]}})", "the checks of 'x'"},
        {R"({"format":"ostrel","version":1,"monitors":[],
             "checks":{"00000000-0000-4000-8000-000000000001":[{}]}})",
         "the checks of '0"},
        {R"([{"name":"a"}])", "monitor 1: a member"},
    };
    for (const auto &each : cases)
        EXPECT_TRUE(problemsOf(each.text).contains(QLatin1String(each.problem)))
            << each.text << ": " << qPrintable(problemsOf(each.text));
}

TEST(ImportReaderTest, ChecksOfNoMonitorAreTold)
{
    const ImportContent content = read(
        R"({"format":"ostrel","version":1,"monitors":[],
            "checks":{"00000000-0000-4000-8000-00000000000a":[]}})");
    EXPECT_EQ(content.notes,
              QStringList{u"no monitor has the checks of 00000000-0000-4000-8000-00000000000A"_s});
}

TEST(TargetsImportTest, ReadsTheTargetsOfEveryGroup)
{
    EXPECT_EQ(addressesIn(R"([{"targets":["https://a.example/","db.example:5432"]},
                              {"targets":["b.example"],"labels":{}},{"targets":[],"labels":null}])"),
              (QStringList{u"https://a.example/"_s, u"db.example:5432"_s, u"https://b.example"_s}));
}

TEST(TargetsImportTest, ALoneTargetsNameIsALabel)
{
    const ImportContent content = read(R"([{"targets":["a.example"],"labels":{"name":" My site "}},
                 {"targets":["b.example","c.example"],"labels":{"name":"both"}}])");
    ASSERT_EQ(content.monitors.size(), 3);
    EXPECT_EQ(content.monitors[0].monitor.name, u"My site"_s);
    EXPECT_EQ(content.monitors[1].monitor.name, u"b.example"_s);
    EXPECT_EQ(content.notes, QStringList{u"group 2: no counterpart for the labels name"_s});
}

TEST(TargetsImportTest, OtherLabelsAreTold)
{
    const ImportContent content =
        read(R"([{"targets":["a.example"],"labels":{"name":"a","team":"x","job":"y"}}])");
    EXPECT_EQ(content.notes, QStringList{u"group 1: no counterpart for the labels job, team"_s});
}

TEST(TargetsImportTest, AnUnusableGroupIsNamed)
{
    for (const char *group :
         {"1", "{}", R"({"targets":"a.example"})", R"({"targets":[1]})",
          R"({"targets":["a.example"],"labels":[]})", R"({"targets":["nonsense"]})"}) {
        const QString problem =
            problemsOf(R"([{"targets":["a.example"]},)" + QByteArray(group) + "]");
        EXPECT_TRUE(problem.startsWith(u"group 2: "_s)) << group << qPrintable(problem);
    }
}

TEST(TargetsImportTest, ReadsBackTheTargetsOfAnExport)
{
    Monitor monitor = website(1, u"https://a.example/"_s);
    monitor.name = u"My site"_s;
    monitor.timeout = Seconds(10);
    const auto configuration = prometheusConfiguration({monitor});
    const QByteArray targets =
        configuration.files.value(u"targets/ostrel-every-60s-within-11s.json"_s);
    const ImportContent content = read(targets);
    ASSERT_EQ(content.monitors.size(), 1);
    EXPECT_EQ(content.monitors[0].monitor.url, monitor.url);
    EXPECT_EQ(content.monitors[0].monitor.name, monitor.name);
}

} // namespace ostrel::test
