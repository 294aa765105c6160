#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "OstrelProgram.h"
#include "VirtualDisplay.h"
#include "WaitFor.h"
#include "WindowManager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLockFile>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

class LifeCycleTest : public testing::Test
{
protected:
    LifeCycleTest() { program.showOn(display); }

    [[nodiscard]] std::size_t checkCount() const
    {
        return program.readChecks()
            .value_or(QHash<QUuid, std::vector<Check>>())
            .value(monitor.id)
            .size();
    }

    /// How often the program's main thread has woken up so far.
    [[nodiscard]] qint64 wakeUps() const
    {
        QFile status(u"/proc/%1/status"_s.arg(program.processId()));
        EXPECT_TRUE(status.open(QIODevice::ReadOnly));
        const QByteArray text = status.readAll();
        const QByteArray key = "\nvoluntary_ctxt_switches:";
        return text.mid(text.indexOf(key) + key.size())
            .simplified()
            .split(' ')
            .first()
            .toLongLong();
    }
    /// How often it wakes up in a second.
    [[nodiscard]] qint64 wakeUpsInASecond() const
    {
        const qint64 before = wakeUps();
        QThread::sleep(1);
        return wakeUps() - before;
    }

    HostileServer server{answerWith("OK")};
    Monitor monitor = webMonitor(u"Shop"_s, server.url());
    VirtualDisplay display;
    WindowManager windows{display};
    OstrelProgram program;
};

} // namespace

TEST_F(LifeCycleTest, WatchesAfterItsWindowIsClosedAndASecondStartShowsItAgain)
{
    ASSERT_TRUE(windows.isReady());
    program.writeMonitors({monitor});
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return windows.hasWindow(u"Ostrel"_s); }));

    ASSERT_TRUE(windows.closeWindow(u"Ostrel"_s));
    ASSERT_TRUE(waitFor([this] { return !windows.hasWindow(u"Ostrel"_s); }));
    const std::size_t before = checkCount();
    EXPECT_TRUE(waitFor([&] { return checkCount() >= before + 2; }));

    EXPECT_EQ(program.run({}).exitCode, 0);
    EXPECT_TRUE(waitFor([this] { return windows.hasWindow(u"Ostrel"_s); }));
    EXPECT_TRUE(program.isRunning());
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(LifeCycleTest, ASecondStartEndsItIfAsked)
{
    EXPECT_EQ(program.run({u"--quit"_s}).exitCode, 0) << "there is none to end";
    ASSERT_TRUE(program.start());
    EXPECT_EQ(program.run({u"--quit"_s}).exitCode, 0);
    EXPECT_EQ(program.waitForEnd(), 0);
}

TEST_F(LifeCycleTest, ASecondStartShowsTheWindowAgainToAddAMonitor)
{
    ASSERT_TRUE(windows.isReady());
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return windows.hasWindow(u"Ostrel"_s); }));
    ASSERT_TRUE(windows.closeWindow(u"Ostrel"_s));
    ASSERT_TRUE(waitFor([this] { return !windows.hasWindow(u"Ostrel"_s); }));
    EXPECT_EQ(program.run({u"--add-monitor"_s}).exitCode, 0);
    EXPECT_TRUE(waitFor([this] { return windows.hasWindow(u"Ostrel"_s); }));
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(LifeCycleTest, AProgramThatIsReplacedGoesOnAndANewOneHandsOverToIt)
{
    const QString path = program.homeFile(u"ostrel"_s);
    ASSERT_TRUE(QFile::copy(OstrelProgram::builtProgram(), path));
    program.setProgram(path);
    program.writeMonitors({monitor});
    ASSERT_TRUE(windows.isReady());
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return windows.hasWindow(u"Ostrel"_s); }));
    ASSERT_TRUE(windows.closeWindow(u"Ostrel"_s));
    ASSERT_TRUE(waitFor([this] { return !windows.hasWindow(u"Ostrel"_s); }));

    ASSERT_TRUE(QFile::remove(path) && QFile::copy(OstrelProgram::builtProgram(), path));
    const std::size_t before = checkCount();
    EXPECT_EQ(program.run({}).exitCode, 0);
    EXPECT_TRUE(waitFor([this] { return windows.hasWindow(u"Ostrel"_s); }));
    EXPECT_TRUE(waitFor([&] { return checkCount() >= before + 2; }));
    EXPECT_TRUE(program.isRunning());
    EXPECT_EQ(program.stop(), 0);

    ASSERT_TRUE(program.start()) << "the new one is the first now";
    EXPECT_TRUE(waitFor([&, count = checkCount()] { return checkCount() > count; }));
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(LifeCycleTest, ItsWindowIsWhereItWasAndAsItWas)
{
    const auto title = u"Ostrel"_s;
    const auto startAgain = [&] {
        EXPECT_EQ(program.stop(), 0);
        ASSERT_TRUE(program.start());
        ASSERT_TRUE(waitFor([&] { return windows.hasWindow(title); }));
    };
    const auto becomes = [&](const QRect &geometry) {
        return waitFor([&] { return windows.geometryOf(title) == geometry; });
    };
    ASSERT_TRUE(windows.isReady());
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([&] { return windows.hasWindow(title); }));
    ASSERT_TRUE(windows.moveWindow(title, {30, 40, 850, 560}));
    ASSERT_TRUE(waitFor([&] { return program.preference("mainWindowSize") == "@Size(850 560)"; }));
    const QRect moved = windows.geometryOf(title);
    ASSERT_EQ(moved.size(), QSize(850, 560));
    startAgain();
    EXPECT_TRUE(becomes(moved));

    ASSERT_TRUE(windows.maximiseWindow(title));
    ASSERT_TRUE(waitFor([&] { return program.preference("mainWindowIsMaximized") == "true"; }));
    const QRect maximised = windows.geometryOf(title);
    ASSERT_NE(maximised, moved);
    startAgain();
    EXPECT_TRUE(becomes(maximised));
    ASSERT_TRUE(windows.closeWindow(title));
    ASSERT_TRUE(waitFor([&] { return !windows.hasWindow(title); }));
    EXPECT_EQ(program.run({}).exitCode, 0);
    EXPECT_TRUE(becomes(maximised));
}

TEST_F(LifeCycleTest, NothingWaitsForItsPreferences)
{
    const QString file = program.homeFile(u"config/Ostrel/Ostrel.conf"_s);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
    QLockFile lock(file + u".lock"_s);
    ASSERT_TRUE(lock.lock()) << "as if the disk were busy";
    program.writeMonitors({monitor});
    ASSERT_TRUE(windows.isReady());
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return windows.hasWindow(u"Ostrel"_s); }));
    ASSERT_TRUE(windows.moveWindow(u"Ostrel"_s, {30, 40, 850, 560}));
    ASSERT_TRUE(waitFor([this] { return windows.geometryOf(u"Ostrel"_s).width() == 850; }));
    const std::size_t before = checkCount();
    EXPECT_TRUE(waitFor([&] { return checkCount() >= before + 3; }));
    EXPECT_TRUE(windows.closeWindow(u"Ostrel"_s));
    EXPECT_TRUE(waitFor([this] { return !windows.hasWindow(u"Ostrel"_s); }));
    EXPECT_EQ(program.run({}).exitCode, 0);
    EXPECT_FALSE(QFile::exists(file));

    lock.unlock();
    EXPECT_EQ(program.stop(), 0);
    EXPECT_EQ(program.preference("mainWindowSize"), "@Size(850 560)");
}

TEST_F(LifeCycleTest, NothingMovesWhileTheWindowIsClosed)
{
    monitor.url = u"http://127.0.0.1:1/"_s; // Down, which pulses as long as it is seen.
    monitor.interval = Seconds(3600);
    ASSERT_TRUE(windows.isReady());
    program.writeMonitors({monitor});
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return checkCount() == 1; }));
    ASSERT_TRUE(waitFor([this] { return windows.hasWindow(u"Ostrel"_s); }));
    ASSERT_TRUE(waitFor([this] { return wakeUpsInASecond() > 10; }));

    ASSERT_TRUE(windows.closeWindow(u"Ostrel"_s));
    EXPECT_TRUE(waitFor([this] { return wakeUpsInASecond() <= 2; }));
}

TEST_F(LifeCycleTest, WatchesEvenIfItsWindowStartsMinimised)
{
    const VirtualDisplay other;
    WindowManager minimising(other, WindowManager::NewWindows::minimised);
    ASSERT_TRUE(minimising.isReady());
    program.showOn(other);
    program.writeMonitors({monitor});
    ASSERT_TRUE(program.start());

    EXPECT_TRUE(waitFor([this] { return checkCount() > 0; }));
    EXPECT_TRUE(minimising.hasWindow(u"Ostrel"_s));
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(LifeCycleTest, SigintEndsItCleanlyAndTheNextStartIsFirstAgain)
{
    for (int start = 0; start < 2; ++start) {
        ASSERT_TRUE(program.start());
        ASSERT_EQ(::kill(static_cast<pid_t>(program.processId()), SIGINT), 0);
        EXPECT_TRUE(waitFor([this] { return !program.isRunning(); }));
    }
}

TEST_F(LifeCycleTest, FirstStartMakesAPrivateFolderAndALoginItem)
{
    QDir(program.dataDir()).removeRecursively();
    ASSERT_TRUE(program.start());
    EXPECT_TRUE(waitFor([this] { return QFile::exists(program.loginItem()); }));
    EXPECT_EQ(program.stop(), 0);

    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                          QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFileInfo(program.dataDir()).permissions() & others);
}

TEST_F(LifeCycleTest, StatusReadsTheFilesWhileItRuns)
{
    program.writeMonitors({monitor});
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return checkCount() > 0; }));

    const auto status = program.run({u"status"_s, u"--json"_s});
    EXPECT_EQ(status.exitCode, 0);
    const QJsonArray monitors = QJsonDocument::fromJson(status.output).array();
    ASSERT_EQ(monitors.size(), 1);
    EXPECT_EQ(monitors[0][u"status"_s].toString(), u"up"_s);
    EXPECT_EQ(program.stop(), 0);
}

TEST_F(LifeCycleTest, CheckMakesOneCheckAndTouchesNoFile)
{
    const auto up = program.run({u"check"_s, monitor.url});
    EXPECT_EQ(up.exitCode, 0);
    EXPECT_EQ(program.run({u"check"_s, u"http://127.0.0.1:%1/"_s.arg(closedPort())}).exitCode, 1);
    EXPECT_EQ(program.run({u"check"_s, u"--port"_s, u"x"_s, u"a"_s}).exitCode, 2);
    EXPECT_EQ(QDir(program.dataDir()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList());
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(LifeCycleTest, AFileThatCannotBeReadIsKept)
{
    QFile file(program.dataDir() + u"/checks.json"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[\"broken");
    file.close();
    program.writeMonitors({monitor});
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(waitFor([this] { return checkCount() > 0; }));
    EXPECT_EQ(program.stop(), 0);

    const QStringList kept =
        QDir(program.dataDir()).entryList({u"checks.json.unreadable-*"_s}, QDir::Files);
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(program.file(kept[0]), QByteArray("[\"broken"));
}

} // namespace ostrel::test
