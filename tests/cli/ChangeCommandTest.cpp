#include "ChangeCommand.h"

#include "FolderOwnership.h"
#include "MonitorCommands.h"
#include "MonitorRequests.h"
#include "MonitorStore.h"
#include "Printers.h"
#include "RequestRunner.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using Kind = MonitorChange::Kind;
using Result = RequestChannel::Result;

class Ownership : public FolderOwnership
{
public:
    [[nodiscard]] bool renew() override { return isOurs; }

    bool isOurs = true;
};

/// A channel to a program of the test, or to none.
class ScriptedChannel : public RequestChannel
{
public:
    [[nodiscard]] Answer ask(const QByteArray &request,
                             std::chrono::milliseconds /*patience*/) override
    {
        if (result == Result::answered && answersLeft-- == 0)
            result = Result::ours;
        Answer answer{.result = result};
        if (result == Result::answered)
            program->answer(request, [&](const QByteArray &line) { answer.line = line; });
        std::exchange(meanwhile, [] {})();
        return answer;
    }
    void release() override {}

    Result result = Result::ours;
    MonitorRequests *program = nullptr;
    int answersLeft = 100;                   ///< Before the program ends.
    std::function<void()> meanwhile = [] {}; ///< Happens after the first answer.
};

Monitor monitorCalled(const QString &name)
{
    return {.id = QUuid::createUuid(), .name = name, .url = u"https://shop.example"_s};
}

class ChangeCommandTest : public testing::Test
{
protected:
    void SetUp() override { fill({shop, blog}); }

    void fill(const QList<Monitor> &monitors) const
    {
        MonitorStore files(folder.path());
        for (const Monitor &monitor : monitors)
            files.addMonitor(monitor);
    }
    [[nodiscard]] QList<Monitor> stored() const
    {
        return StoredRecords::read(folder.path()).monitors;
    }
    [[nodiscard]] CommandResult add(const Monitor &monitor)
    {
        RequestRunner runner(folder.path(), channel, ownership);
        return runAdd({.dataDir = folder.path(), .monitor = monitor}, runner);
    }
    [[nodiscard]] CommandResult edit(const QString &name, const MonitorOptions &options)
    {
        RequestRunner runner(folder.path(), channel, ownership);
        return runEdit({.dataDir = folder.path(), .name = name, .options = options}, runner);
    }
    [[nodiscard]] CommandResult change(Kind kind, const QStringList &names)
    {
        RequestRunner runner(folder.path(), channel, ownership);
        return runSwitch({.dataDir = folder.path(), .kind = kind, .names = names}, runner);
    }
    /// From now on a program watches.
    void watch()
    {
        store = std::make_unique<MonitorStore>(folder.path());
        commands = std::make_unique<MonitorCommands>(*store);
        requests = std::make_unique<MonitorRequests>(*store, *commands);
        channel.program = requests.get();
        channel.result = Result::answered;
    }

    QTemporaryDir folder;
    Monitor shop = monitorCalled(u"Shop"_s);
    Monitor blog = monitorCalled(u"Blog %1"_s);
    Ownership ownership;
    ScriptedChannel channel;
    std::unique_ptr<MonitorStore> store;
    std::unique_ptr<MonitorCommands> commands;
    std::unique_ptr<MonitorRequests> requests;
};

QByteArray shortIdOf(const Monitor &monitor)
{
    return monitor.id.toByteArray(QUuid::WithoutBraces).first(8).toUpper();
}

} // namespace

TEST_F(ChangeCommandTest, WithoutAProgramTheFilesChange)
{
    const Monitor news = monitorCalled(u"News"_s);
    EXPECT_EQ(add(news).output, "Added News (" + shortIdOf(news) + ")\n");
    ASSERT_EQ(stored().size(), 3);
    EXPECT_EQ(stored().last().name, u"News"_s);

    EXPECT_EQ(edit(u"News"_s, {.interval = Seconds(7)}).output,
              "Changed News (" + shortIdOf(news) + ")\n");
    EXPECT_EQ(stored().last().interval, Seconds(7));
    EXPECT_EQ(change(Kind::pause, {u"Blog %1"_s, u"News"_s}).output,
              "Paused Blog %1 (" + shortIdOf(blog) + ")\nPaused News (" + shortIdOf(news) + ")\n");
    EXPECT_FALSE(stored().last().isEnabled);
    EXPECT_EQ(change(Kind::remove, {u"Blog %1"_s, u"shop"_s}).exitCode, 0);
    EXPECT_EQ(stored().size(), 1);
}

TEST_F(ChangeCommandTest, WithAProgramItsMonitorsChange)
{
    watch();
    const CommandResult result = change(Kind::pause, {u"Shop"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "Paused Shop (" + shortIdOf(shop) + ")\n");
    EXPECT_FALSE(store->monitors().constFirst().isEnabled);
    EXPECT_EQ(edit(u"Shop"_s, {.keyword = u"OK"_s}).exitCode, 0);
    EXPECT_EQ(store->monitors().constFirst().keyword, u"OK"_s);
    EXPECT_FALSE(store->monitors().constFirst().isEnabled);
    EXPECT_EQ(edit(u"Shop"_s, {.keyword = QString()}).exitCode, 0);
    EXPECT_FALSE(store->monitors().constFirst().keyword);
}

TEST_F(ChangeCommandTest, AnEditKeepsWhatTheWindowChangesMeanwhile)
{
    watch();
    channel.meanwhile = [this] {
        Monitor changed = store->monitors().constFirst();
        changed.interval = Seconds(900);
        store->updateMonitor(changed);
    };
    EXPECT_EQ(edit(u"Shop"_s, {.timeout = Seconds(3)}).exitCode, 0);
    EXPECT_EQ(store->monitors().constFirst().timeout, Seconds(3));
    EXPECT_EQ(store->monitors().constFirst().interval, Seconds(900));
}

TEST_F(ChangeCommandTest, AMonitorThatIsRemovedMeanwhileIsToldOf)
{
    watch();
    channel.meanwhile = [this] { store->deleteMonitor(shop.id); };
    const CommandResult result = change(Kind::pause, {u"Blog %1"_s, u"Shop"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.complaint.startsWith(u"There is no monitor with the id "_s));
    EXPECT_TRUE(store->monitors().constFirst().isEnabled);
}

TEST_F(ChangeCommandTest, WhatWasSoAlreadyIsDoneAndSaysSo)
{
    EXPECT_EQ(change(Kind::resume, {u"Shop"_s}).output,
              "Shop (" + shortIdOf(shop) + ") isn't paused\n");
    EXPECT_EQ(edit(u"Shop"_s, {.interval = shop.interval}).output,
              "Shop (" + shortIdOf(shop) + ") is like that already\n");
    EXPECT_EQ(change(Kind::resume, {u"Shop"_s}).exitCode, 0);
}

TEST_F(ChangeCommandTest, AnUnknownMonitorChangesNothing)
{
    for (const bool isWatched : {false, true}) {
        if (isWatched)
            watch();
        const CommandResult result = change(Kind::remove, {u"Shop"_s, u"News"_s});
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.complaint, u"No monitor is called 'News'."_s);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(edit(u"News"_s, {}).exitCode, 2);
        EXPECT_EQ(stored().size(), 2);
    }
}

TEST_F(ChangeCommandTest, AnEditThatDoesNotSuitTheMonitorChangesNothing)
{
    const CommandResult result = edit(u"Shop"_s, {.port = 5});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.complaint, u"--port needs the address of a host."_s);
}

TEST_F(ChangeCommandTest, AProgramThatEndsMeanwhileLeavesItToTheFiles)
{
    watch();
    channel.answersLeft = 1;
    const CommandResult result = change(Kind::pause, {u"Shop"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_FALSE(stored().constFirst().isEnabled);
}

TEST_F(ChangeCommandTest, AFolderThatCannotBeUsedChangesNothing)
{
    channel.result = Result::unusable;
    EXPECT_EQ(change(Kind::pause, {u"Shop"_s}).complaint, u"can't lock "_s + folder.path());
    channel.result = Result::silent;
    const CommandResult silent = add(monitorCalled(u"News"_s));
    EXPECT_EQ(silent.exitCode, 1);
    EXPECT_EQ(silent.complaint, u"another Ostrel that doesn't answer uses "_s + folder.path());
}

TEST_F(ChangeCommandTest, AFileThatCannotBeReadIsLeftAlone)
{
    const QString path = StoredRecords::monitorsPath(folder.path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("broken");
    file.close();
    const CommandResult result = add(monitorCalled(u"News"_s));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.complaint, u"can't read "_s + path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "broken");
}

TEST_F(ChangeCommandTest, AFailureToSaveIsTold)
{
    ownership.isOurs = false;
    const CommandResult files = add(monitorCalled(u"News"_s));
    EXPECT_EQ(files.exitCode, 1);
    EXPECT_TRUE(files.complaint.startsWith(u"can't save to "_s + folder.path()));
    EXPECT_EQ(files.output, "");
}

TEST_F(ChangeCommandTest, AProgramThatCannotSaveHasDoneItAllTheSame)
{
    watch();
    ASSERT_TRUE(QDir(folder.path()).removeRecursively());
    QFile inTheWay(folder.path());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const CommandResult result = change(Kind::pause, {u"Shop"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.complaint.startsWith(u"it is done, but can't be saved to "_s))
        << qPrintable(result.complaint);
    EXPECT_FALSE(store->monitors().constFirst().isEnabled);
    ASSERT_TRUE(inTheWay.remove());
}

TEST_F(ChangeCommandTest, WithoutAFolderThereAreNoMonitors)
{
    RequestRunner runner(folder.filePath(u"missing"_s), channel, ownership);
    EXPECT_EQ(
        runSwitch({.dataDir = runner.dataDir(), .kind = Kind::pause, .names = {u"a"_s}}, runner)
            .exitCode,
        2);
    EXPECT_FALSE(QDir(runner.dataDir()).exists());
}

} // namespace ostrel::test
