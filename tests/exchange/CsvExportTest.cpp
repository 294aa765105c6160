#include "CsvExport.h"

#include "ExchangeSamples.h"
#include "Printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QByteArray exported(const StoredRecords &records)
{
    return written([&](ContentWriter &content) { appendCsvExport(records, content); });
}

QByteArrayList rowsOf(const StoredRecords &records)
{
    QByteArray text = exported(records);
    EXPECT_TRUE(text.endsWith("\r\n"));
    text.chop(2);
    QByteArrayList rows;
    for (const QString &row : QString::fromUtf8(text).split(u"\r\n"_s))
        rows += row.toUtf8();
    return rows;
}

/// The first field of the row of a monitor of this name.
QByteArray fieldOf(const QString &name)
{
    Monitor monitor = website(1, u"https://a.example/"_s);
    monitor.name = name;
    const QByteArray row = rowsOf(recordsOf({monitor}, {checkAt(monitor, 1, true)})).value(1);
    return row.first(row.indexOf(",\"https://"));
}

} // namespace

TEST(CsvExportTest, ARowOfNamesComesFirst)
{
    EXPECT_EQ(exported(recordsOf({})),
              QByteArray("monitor,address,monitor id,time,status,response time (ms),status code,"
                         "error,certificate expires\r\n"));
}

TEST(CsvExportTest, EveryCheckIsARow)
{
    const Monitor site = website(1, u"https://a.example/"_s);
    const Monitor port = portMonitor(2, u"db.example"_s, 5432);
    Check up = checkAt(site, 1, true);
    up.statusCode = 200;
    up.responseTime = 12.5;
    up.sslExpiresAt = up.timestamp + std::chrono::hours(24);
    Check down = checkAt(port, 2, false);
    down.error = u"Port 5432 closed or unreachable"_s;
    const QByteArrayList rows = rowsOf(recordsOf({port, site, site}, {up, down}));
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[1],
              QByteArray("\"db.example\",\"db.example:5432\",00000000-0000-4000-8000-000000000002,"
                         "2026-01-01T00:02:00Z,down,250,,\"Port 5432 closed or unreachable\","));
    EXPECT_EQ(rows[2], QByteArray("\"a.example\",\"https://a.example/\","
                                  "00000000-0000-4000-8000-000000000001,2026-01-01T00:01:00Z,up,"
                                  "12.5,200,,2026-01-02T00:01:00Z"));
}

TEST(CsvExportTest, TextsAreQuoted)
{
    EXPECT_EQ(fieldOf(u"a, \"b\"\nc\rd"_s), QByteArray("\"a, \"\"b\"\"\nc\rd\""));
    EXPECT_EQ(fieldOf(u"%1 %2"_s), QByteArray("\"%1 %2\""));
    EXPECT_EQ(fieldOf(u"Gr\u00FC\u00DFe"_s), u"\"Gr\u00FC\u00DFe\""_s.toUtf8());
}

TEST(CsvExportTest, NoTextIsAFormula)
{
    for (const QString &formula :
         {u"=1+1"_s, u"+1"_s, u"-1"_s, u"@SUM(1)"_s, u" =1"_s, u"\t=1"_s, u"\r=1"_s, u"\n@a"_s,
          u"\u200B=1"_s, u"\u00A0=1"_s, u"\uFF1D1+1"_s, u"\x01=1"_s, u"=\"a\"&\"b\""_s})
        EXPECT_TRUE(fieldOf(formula).startsWith("\"'")) << qPrintable(formula);
    for (const QString &harmless : {u"a=1"_s, u"1-1"_s, u"a@b"_s, u"  "_s})
        EXPECT_FALSE(fieldOf(harmless).startsWith("\"'")) << qPrintable(harmless);
    EXPECT_EQ(fieldOf(u"a=1"_s), QByteArray("\"a=1\""));
}

TEST(CsvExportTest, NoErrorAndNoAddressIsAFormula)
{
    Monitor monitor = website(1, u"=A1"_s);
    monitor.name = u"a"_s;
    Check check = checkAt(monitor, 1, false);
    check.error = u"=HYPERLINK(\"x\")"_s;
    const QByteArray row = rowsOf(recordsOf({monitor}, {check})).value(1);
    EXPECT_TRUE(row.startsWith("\"a\",\"'=A1\",")) << row.toStdString();
    EXPECT_TRUE(row.endsWith(",\"'=HYPERLINK(\"\"x\"\")\",")) << row.toStdString();
}

} // namespace ostrel::test
