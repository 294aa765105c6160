#include "ListCommand.h"

#include "ForeignTexts.h"
#include "MonitorJson.h"
#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QList<Monitor> samples()
{
    Monitor shop{.id = QUuid(u"1b2c3d4e-0000-4000-8000-000000000001"_s),
                 .name = u"Shop"_s,
                 .url = u"https://shop.example"_s};
    Monitor database{.id = QUuid(u"9f8e7d6c-0000-4000-8000-000000000001"_s),
                     .name = u"Database"_s,
                     .url = u"db.local"_s};
    database.type = MonitorType::port;
    database.port = 5432;
    database.interval = Seconds(0.5);
    database.isEnabled = false;
    return {shop, database};
}

} // namespace

TEST(ListCommandTest, PeopleReadALineForEachMonitor)
{
    EXPECT_EQ(describeMonitors(samples(), ListFormat::human),
              "1B2C3D4E  Shop      https://shop.example  every 60 s\n"
              "9F8E7D6C  Database  db.local, port 5432   every 0.5 s  paused\n");
    EXPECT_EQ(describeMonitors({}, ListFormat::human), "No monitors\n");
}

TEST(ListCommandTest, ForeignNamesTakeOneLineEach)
{
    for (const ForeignText &foreign : foreignTexts()) {
        QList<Monitor> monitors = samples();
        monitors[0].name = foreign.text;
        monitors[1].url = foreign.text;
        for (const ListFormat format : {ListFormat::human, ListFormat::names})
            EXPECT_EQ(describeMonitors(monitors, format).count('\n'), 2) << foreign.name;
    }
}

TEST(ListCommandTest, NamesAreAloneOnTheirLines)
{
    EXPECT_EQ(describeMonitors(samples(), ListFormat::names), "Shop\nDatabase\n");
    EXPECT_EQ(describeMonitors({}, ListFormat::names), "");
}

TEST(ListCommandTest, JsonIsTheStoredForm)
{
    EXPECT_EQ(decodeMonitors(describeMonitors(samples(), ListFormat::json)), samples());
}

TEST(ListCommandTest, TheFolderIsOnlyRead)
{
    const QTemporaryDir home;
    const QString folder = home.filePath(u"data"_s);
    EXPECT_EQ(readList({.dataDir = folder}), "No monitors\n");
    EXPECT_FALSE(QDir(folder).exists());

    ASSERT_TRUE(QDir().mkpath(folder));
    QFile file(folder + u"/monitors.json"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("broken");
    file.close();
    EXPECT_EQ(readList({.dataDir = folder}), std::nullopt);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList{u"monitors.json"_s});
}

} // namespace ostrel::test
