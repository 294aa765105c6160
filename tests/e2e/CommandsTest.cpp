#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "HostileServer.h"
#include "OstrelProgram.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;
using Outcome = OstrelProgram::Outcome;

/// The commands with a program that watches (true) and without one.
class CommandsTest : public testing::TestWithParam<bool>
{
protected:
    void SetUp() override
    {
        shop.isEnabled = false;
        program.writeMonitors({shop, blog, secondBlog});
        ASSERT_TRUE(!GetParam() || program.start());
    }
    void TearDown() override { EXPECT_TRUE(!program.isRunning() || program.stop() == 0); }

    [[nodiscard]] QList<Monitor> monitors() const
    {
        return program.readMonitors().value_or(QList<Monitor>());
    }
    [[nodiscard]] Monitor monitor(const QString &name) const
    {
        for (const Monitor &each : monitors()) {
            if (each.name == name)
                return each;
        }
        return {};
    }
    [[nodiscard]] std::size_t checkCount(const Monitor &of) const
    {
        return program.readChecks()
            .value_or(QHash<QUuid, std::vector<Check>>())
            .value(of.id)
            .size();
    }
    [[nodiscard]] static QByteArray idOf(const Monitor &of)
    {
        return of.id.toByteArray(QUuid::WithoutBraces).first(8).toUpper();
    }

    HostileServer server{answerWith("OK")};
    Monitor shop = webMonitor(u"Shop"_s, server.url());
    Monitor blog = portMonitor(u"Blog"_s, u"127.0.0.1"_s, 1);
    Monitor secondBlog = portMonitor(u"blog"_s, u"127.0.0.1"_s, 1);
    OstrelProgram program;
};

INSTANTIATE_TEST_SUITE_P(Commands, CommandsTest, testing::Bool(), [](const auto &with) {
    return with.param ? "ThroughTheProgramThatWatches" : "OnTheFiles";
});

class LoneCommandsTest : public CommandsTest
{
};

INSTANTIATE_TEST_SUITE_P(Commands, LoneCommandsTest, testing::Values(false));

class WatchedCommandsTest : public CommandsTest
{
};

INSTANTIATE_TEST_SUITE_P(Commands, WatchedCommandsTest, testing::Values(true));

} // namespace

TEST_P(CommandsTest, AMonitorIsAddedEditedSwitchedAndRemoved)
{
    const Outcome added = program.run({u"add"_s, u"127.0.0.1:2"_s, u"--name"_s, u"My \u00fc"_s,
                                       u"--interval"_s, u"90"_s, u"--timeout"_s, u"2.5"_s});
    EXPECT_EQ(added.exitCode, 0) << added.errors.constData();
    const Monitor mine = monitor(u"My \u00fc"_s);
    EXPECT_EQ(added.output, "Added My \u00fc (" + idOf(mine) + ")\n");
    EXPECT_EQ(mine.type, MonitorType::port);
    EXPECT_EQ(mine.port, 2);
    EXPECT_EQ(mine.interval, Seconds(90));
    EXPECT_EQ(mine.timeout, Seconds(2.5));

    EXPECT_EQ(program.run({u"edit"_s, u"MY \u00dc"_s, u"--interval"_s, u"45"_s}).exitCode, 0);
    EXPECT_EQ(monitor(mine.name).interval, Seconds(45));
    EXPECT_EQ(program.run({u"pause"_s, mine.name, u"Blog"_s}).exitCode, 0);
    EXPECT_FALSE(monitor(mine.name).isEnabled);
    EXPECT_FALSE(monitor(u"Blog"_s).isEnabled);
    EXPECT_EQ(program.run({u"resume"_s, QString::fromLatin1(idOf(mine).toLower())}).exitCode, 0);
    EXPECT_TRUE(monitor(mine.name).isEnabled);
    EXPECT_EQ(program.run({u"remove"_s, mine.name, u"Shop"_s}).exitCode, 0);
    EXPECT_EQ(monitors().size(), 2);
}

TEST_P(CommandsTest, TheListShowsWhatWasChanged)
{
    ASSERT_EQ(program.run({u"edit"_s, u"Shop"_s, u"--name"_s, u"Store"_s}).exitCode, 0);
    EXPECT_EQ(program.run({u"list"_s, u"--names"_s}).output, "Store\nBlog\nblog\n");
    EXPECT_TRUE(program.run({u"list"_s}).output.startsWith(idOf(shop) + "  Store  "));
}

TEST_P(CommandsTest, WhatNamesNoneOrSeveralChangesNothing)
{
    const QByteArray before = program.file(u"monitors.json"_s);
    for (const QString &command : {u"pause"_s, u"resume"_s, u"remove"_s, u"check-now"_s}) {
        const Outcome unknown = program.run({command, u"Shop"_s, u"News"_s});
        EXPECT_EQ(unknown.exitCode, 2) << qPrintable(command);
        EXPECT_EQ(unknown.errors, "ostrel: No monitor is called 'News'.\n");
        const Outcome ambiguous = program.run({command, u"Shop"_s, u"BLOG"_s});
        EXPECT_EQ(ambiguous.exitCode, 2) << qPrintable(command);
        EXPECT_EQ(ambiguous.errors, "ostrel: 2 monitors are called 'BLOG'; their ids are " +
                                        idOf(blog) + ", " + idOf(secondBlog) + ".\n");
        EXPECT_EQ(unknown.output + ambiguous.output, "");
    }
    EXPECT_EQ(program.file(u"monitors.json"_s), before);
}

TEST_P(CommandsTest, BadInputGetsOneLineAndChangesNothing)
{
    const QByteArray before = program.file(u"monitors.json"_s);
    for (const QStringList &line :
         {QStringList{u"add"_s}, QStringList{u"add"_s, u"x\ny"_s},
          QStringList{u"add"_s, u"a.b"_s, u"--interval"_s, u"0"_s},
          QStringList{u"edit"_s, u"Shop"_s, u"--port"_s, u"5"_s},
          QStringList{u"edit"_s, u"Shop"_s, u"--timeout"_s, u"never"_s},
          QStringList{u"edit"_s, u"Blog"_s, u"--keyword"_s, u"x"_s}, QStringList{u"pause"_s},
          QStringList{u"remove"_s, u"Shop"_s, u"--all"_s}, QStringList{u"list"_s, u"Shop"_s},
          QStringList{u"status"_s, u"--follow"_s}, QStringList{u"unknown"_s},
          QStringList{u"help"_s, u"unknown"_s}}) {
        const Outcome outcome = program.run(line);
        EXPECT_EQ(outcome.exitCode, 2) << qPrintable(line.join(u' '));
        EXPECT_EQ(outcome.errors.count('\n'), 1) << outcome.errors.constData();
        EXPECT_TRUE(outcome.errors.startsWith("ostrel: ")) << outcome.errors.constData();
        EXPECT_EQ(outcome.output, "") << qPrintable(line.join(u' '));
    }
    EXPECT_EQ(program.file(u"monitors.json"_s), before);
}

TEST_P(CommandsTest, CheckNowPrintsResultsAndKeepsThem)
{
    const Outcome up = program.run({u"check-now"_s, u"Shop"_s});
    EXPECT_EQ(up.exitCode, 0) << up.errors.constData();
    EXPECT_TRUE(up.output.startsWith("UP    http://127.0.0.1:")) << up.output.constData();
    EXPECT_EQ(checkCount(shop), 1u);

    const std::size_t before = checkCount(blog);
    const Outcome down = program.run({u"check-now"_s, u"Shop"_s, u"Blog"_s, u"--json"_s});
    EXPECT_EQ(down.exitCode, 1);
    EXPECT_EQ(down.output.count("\"isUp\":true"), 1) << down.output.constData();
    EXPECT_EQ(down.output.count("\"isUp\":false"), 1) << down.output.constData();
    EXPECT_GT(checkCount(blog), before);
    EXPECT_EQ(checkCount(shop), 2u);
}

TEST_P(CommandsTest, CommandsAtOnceAreAllDone)
{
    std::vector<std::unique_ptr<BoundProcess>> commands;
    for (int i = 0; i < 8; ++i)
        commands.push_back(
            program.begin({u"add"_s, u"127.0.0.1:%1"_s.arg(i + 1), u"--name"_s, u"n"_s}));
    for (const auto &command : commands)
        EXPECT_EQ(OstrelProgram::outcomeOf(*command).exitCode, 0);
    EXPECT_EQ(monitors().size(), 11);
}

TEST_P(CommandsTest, StatusIsFollowedUntilASignal)
{
    const auto status = program.begin({u"status"_s, u"--watch"_s});
    ASSERT_TRUE(status->nextLine().contains("Shop"));
    ASSERT_EQ(program.run({u"edit"_s, u"Shop"_s, u"--name"_s, u"Store"_s}).exitCode, 0);
    QByteArray line = status->nextLine();
    while (status->state() == QProcess::Running && !line.contains("Store"))
        line = status->nextLine();
    EXPECT_TRUE(line.startsWith("PAUSED   Store")) << line.constData();
    ::kill(static_cast<pid_t>(status->processId()), SIGINT);
    EXPECT_EQ(OstrelProgram::outcomeOf(*status).exitCode, 0);
}

TEST_P(LoneCommandsTest, AnUnreadableFileIsLeftAlone)
{
    QFile file(program.dataDir() + u"/monitors.json"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("broken");
    file.close();
    for (const QStringList &line :
         {QStringList{u"add"_s, u"127.0.0.1:1"_s}, QStringList{u"pause"_s, u"Shop"_s},
          QStringList{u"check-now"_s, u"Shop"_s}, QStringList{u"list"_s},
          QStringList{u"status"_s, u"--watch"_s}}) {
        const Outcome outcome = program.run(line);
        EXPECT_EQ(outcome.exitCode, 1) << qPrintable(line.join(u' '));
        EXPECT_TRUE(outcome.errors.startsWith("ostrel: can't read ")) << outcome.errors.constData();
    }
    EXPECT_EQ(program.file(u"monitors.json"_s), "broken");
}

TEST_P(LoneCommandsTest, TheFirstMonitorMakesTheFolder)
{
    ASSERT_TRUE(QDir(program.dataDir()).removeRecursively());
    EXPECT_EQ(program.run({u"pause"_s, u"Shop"_s}).exitCode, 2);
    EXPECT_FALSE(QDir(program.dataDir()).exists());
    EXPECT_EQ(program.run({u"add"_s, u"127.0.0.1:1"_s}).exitCode, 0);
    EXPECT_EQ(monitors().size(), 1);
}

TEST_P(LoneCommandsTest, AProgramCanStartDuringAChecksTime)
{
    HostileServer silent(staySilent);
    Monitor slow = webMonitor(u"Slow"_s, silent.url());
    slow.isEnabled = false;
    slow.timeout = Seconds(3600);
    program.writeMonitors({slow});
    const auto command = program.begin({u"check-now"_s, u"Slow"_s});
    ASSERT_TRUE(waitFor([&] { return silent.connectionCount() > 0; }));
    ASSERT_TRUE(program.start());
    command->terminate();
    command->waitForFinished();
    EXPECT_EQ(program.run({u"resume"_s, u"Slow"_s}).exitCode, 0);
}

TEST_P(WatchedCommandsTest, ACommandGoesOnWithTheFilesIfTheProgramEndsBeforeItAnswers)
{
    ::kill(static_cast<pid_t>(program.processId()), SIGSTOP);
    const auto command = program.begin({u"pause"_s, u"Blog"_s});
    ASSERT_TRUE(waitFor([&] { return command->state() == QProcess::Running; }));
    program.kill();
    const Outcome outcome = OstrelProgram::outcomeOf(*command);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors.constData();
    EXPECT_FALSE(monitor(u"Blog"_s).isEnabled);
}

TEST_P(WatchedCommandsTest, AProgramThatHangsIsToldOf)
{
    ::kill(static_cast<pid_t>(program.processId()), SIGSTOP);
    const Outcome outcome = program.run({u"pause"_s, u"Blog"_s});
    ::kill(static_cast<pid_t>(program.processId()), SIGCONT);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(outcome.errors.startsWith("ostrel: another Ostrel that doesn't answer uses "))
        << outcome.errors.constData();
}

TEST_P(WatchedCommandsTest, AnAddedMonitorIsWatchedAtOnce)
{
    ASSERT_EQ(program.run({u"add"_s, u"127.0.0.1:3"_s}).exitCode, 0);
    EXPECT_TRUE(waitFor([&] { return checkCount(monitors().last()) > 0; }));
    ASSERT_EQ(program.run({u"resume"_s, u"Shop"_s}).exitCode, 0);
    EXPECT_TRUE(waitFor([&] { return checkCount(shop) > 0; }));
}

} // namespace ostrel::test
