#include "CheckNowCommand.h"

#include "FolderOwnership.h"
#include "MonitorStore.h"
#include "OfflineNetwork.h"
#include "Printers.h"
#include "RecordObjects.h"
#include "RequestRunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

class Ownership : public FolderOwnership
{
public:
    [[nodiscard]] bool renew() override { return true; }
};

/// A channel to a program that gives canned answers and then ends, unless it starts only then.
class CannedChannel : public RequestChannel
{
public:
    [[nodiscard]] Answer ask(const QByteArray & /*request*/,
                             std::chrono::milliseconds /*patience*/) override
    {
        if (lines.isEmpty() || (startsLate && !isReleased))
            return {.result = Result::ours};
        return {.result = Result::answered, .line = lines.takeFirst()};
    }
    void release() override { isReleased = true; }

    QList<QByteArray> lines;
    bool startsLate = false;
    bool isReleased = false;
};

QByteArray okLine(const QJsonArray &array)
{
    return "ok " + QJsonDocument(array).toJson(QJsonDocument::Compact);
}

class CheckNowCommandTest : public testing::Test
{
protected:
    CheckNowCommandTest()
    {
        MonitorStore store(folder.path());
        database.type = MonitorType::port;
        database.port = 5432;
        store.addMonitor(database);
    }

    [[nodiscard]] CommandResult run(const QString &name = u"Database"_s)
    {
        RequestRunner runner(folder.path(), channel, ownership);
        return runCheckNow({.dataDir = folder.path(), .names = {name}}, runner, network);
    }
    [[nodiscard]] std::size_t recorded() const
    {
        return MonitorStore(folder.path(), MonitorStore::Access::readOnly)
            .checks(database.id)
            .size();
    }
    [[nodiscard]] QByteArray monitorsLine() const { return okLine({monitorObject(database)}); }

    QTemporaryDir folder;
    Monitor database{.id = QUuid::createUuid(), .name = u"Database"_s, .url = u"db.local"_s};
    Ownership ownership;
    CannedChannel channel;
    OfflineNetwork network;
};

} // namespace

TEST_F(CheckNowCommandTest, WithoutAProgramItChecksAndRecords)
{
    const CommandResult result = run();
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.output.startsWith("DOWN  db.local, port 5432")) << result.output.constData();
    EXPECT_EQ(result.complaint, QString());
    EXPECT_TRUE(channel.isReleased);
    EXPECT_EQ(recorded(), 1u);
}

TEST_F(CheckNowCommandTest, TheProgramsResultIsPrinted)
{
    Check check{.id = QUuid::createUuid(), .monitorId = database.id, .timestamp = {}};
    check.isUp = true;
    check.responseTime = 12;
    channel.lines = {monitorsLine(), okLine({checkObject(check)})};
    const CommandResult result = run();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "UP    db.local, port 5432  12 ms\n");
    EXPECT_EQ(recorded(), 0u);
}

TEST_F(CheckNowCommandTest, ADroppedCheckIsToldOf)
{
    channel.lines = {monitorsLine(), "ok [null]"};
    const CommandResult result = run();
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_TRUE(result.complaint.startsWith(u"the check of Database ("_s));
}

TEST_F(CheckNowCommandTest, AMalformedResultIsNone)
{
    for (const char *line : {"ok []", "ok {}", "ok [1]", "ok [{}]"}) {
        channel.lines = {monitorsLine(), line};
        EXPECT_EQ(run().exitCode, 1) << line;
        EXPECT_EQ(recorded(), 0u) << line;
    }
    channel.lines = {monitorsLine(), "nonsense"};
    EXPECT_EQ(run().complaint, u"The answer is malformed."_s);
}

TEST_F(CheckNowCommandTest, IfTheProgramEndsMeanwhileItChecksItself)
{
    channel.lines = {monitorsLine()};
    EXPECT_TRUE(run().output.startsWith("DOWN  "));
    EXPECT_EQ(recorded(), 1u);
}

TEST_F(CheckNowCommandTest, IfAProgramStartsMeanwhileTheResultIsNotRecorded)
{
    channel.lines = {monitorsLine()};
    channel.startsLate = true;
    const CommandResult result = run();
    EXPECT_TRUE(result.output.startsWith("DOWN  "));
    EXPECT_EQ(result.complaint, u"the results aren't in the history: an Ostrel that has started "
                                "meanwhile makes checks of its own"_s);
    EXPECT_EQ(recorded(), 0u);
}

TEST_F(CheckNowCommandTest, AnUnknownMonitorIsNotChecked)
{
    const CommandResult result = run(u"News"_s);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(recorded(), 0u);
}

} // namespace ostrel::test
