#include "JsonExport.h"

#include "ExchangeSamples.h"
#include "MonitorJson.h"
#include "Printers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

constexpr Timestamp exportTime = std::chrono::sys_days(std::chrono::year(2026) / 2 / 3);

QByteArray exported(const StoredRecords &records, ExportedHistory history)
{
    return written(
        [&](ContentWriter &content) { appendJsonExport(records, history, exportTime, content); });
}

QJsonObject objectOf(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << qPrintable(error.errorString());
    return document.object();
}

} // namespace

TEST(JsonExportTest, NamesItsFormatVersionAndTime)
{
    const QJsonObject object = objectOf(exported(recordsOf({}), ExportedHistory::leftOut));
    EXPECT_EQ(object[u"format"_s].toString(), u"ostrel"_s);
    EXPECT_EQ(object[u"version"_s].toInt(), 1);
    EXPECT_EQ(object[u"exported"_s].toString(), u"2026-02-03T00:00:00Z"_s);
    EXPECT_TRUE(object[u"monitors"_s].toArray().isEmpty());
}

TEST(JsonExportTest, MonitorsHaveTheirStoredForm)
{
    const QList<Monitor> monitors = {website(1, u"https://a.example/\"quoted\"\n"_s),
                                     portMonitor(2, u"db.example"_s, 5432)};
    const QJsonObject object = objectOf(exported(recordsOf(monitors), ExportedHistory::leftOut));
    const QByteArray array = QJsonDocument(object[u"monitors"_s].toArray()).toJson();
    EXPECT_EQ(decodeMonitors(array), monitors);
}

TEST(JsonExportTest, TheHistoryIsLeftOutUnlessItIsWanted)
{
    const Monitor monitor = website(1, u"https://a.example/"_s);
    const StoredRecords records = recordsOf({monitor}, {checkAt(monitor, 1, true)});
    EXPECT_FALSE(objectOf(exported(records, ExportedHistory::leftOut)).contains(u"checks"_s));
    EXPECT_TRUE(objectOf(exported(records, ExportedHistory::included)).contains(u"checks"_s));
}

TEST(JsonExportTest, EachMonitorHasItsChecksOldestFirst)
{
    const Monitor busy = website(1, u"https://a.example/"_s);
    const Monitor unchecked = website(2, u"https://b.example/"_s);
    const Monitor deleted = website(3, u"https://c.example/"_s);
    const StoredRecords records =
        recordsOf({busy, unchecked, busy},
                  {checkAt(busy, 1, true), checkAt(busy, 2, false), checkAt(deleted, 3, true)});
    const QJsonObject checks =
        objectOf(exported(records, ExportedHistory::included))[u"checks"_s].toObject();
    EXPECT_EQ(checks.keys(), (QStringList{u"00000000-0000-4000-8000-000000000001"_s,
                                          u"00000000-0000-4000-8000-000000000002"_s}));
    const QJsonArray history = checks.begin()->toArray();
    ASSERT_EQ(history.size(), 2);
    EXPECT_EQ(history[0].toObject()[u"timestamp"_s].toString(), u"2026-01-01T00:01:00Z"_s);
    EXPECT_EQ(history[1].toObject()[u"isUp"_s].toBool(true), false);
    EXPECT_TRUE(checks[u"00000000-0000-4000-8000-000000000002"_s].toArray().isEmpty());
}

TEST(JsonExportTest, EveryCheckHasALine)
{
    const Monitor monitor = website(1, u"https://a.example/"_s);
    const QByteArray json =
        exported(recordsOf({monitor}, {checkAt(monitor, 1, true), checkAt(monitor, 2, true)}),
                 ExportedHistory::included);
    EXPECT_EQ(json.count("\n{\"id\":"), 2);
    EXPECT_TRUE(json.endsWith("}]}\n}\n")) << json.toStdString();
}

} // namespace ostrel::test
