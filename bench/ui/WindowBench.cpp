// What the program costs with its window open and hidden, beside an empty Qt Quick window with the
// same renderer in the same run. Both run on a virtual display with a window manager.

#include "BenchServer.h"
#include "BoundProcess.h"
#include "FullFolder.h"
#include "IconFolder.h"
#include "PrivateBus.h"
#include "TestCertificates.h"
#include "VirtualDisplay.h"
#include "WindowManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace ostrel::bench {

namespace {

using namespace std::chrono_literals;
using test::BoundProcess;

constexpr int monitorCount = 20;
constexpr int startRounds = 11;
constexpr auto settling = 6s; // For every monitor's first check and its consequences.
constexpr auto watching = 30s;

/// A virtual display with a window manager, and a bus.
struct Desktop
{
    [[nodiscard]] QProcessEnvironment environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"WAYLAND_DISPLAY"_s);
        environment.remove(u"QT_QPA_PLATFORM"_s);
        environment.insert(u"DISPLAY"_s, display.name());
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
        return environment;
    }

    test::VirtualDisplay display;
    test::PrivateBus bus;
    test::WindowManager windows{display};
};

/// A home with twenty monitors and their full histories.
class Home
{
public:
    /// The first monitor checks @p down, the others check @p url.
    Home(const QByteArray &url, const QByteArray &down)
    {
        const QString dataDir = m_folder.filePath(u"data/Vantry"_s);
        const auto ids = fillFolder(dataDir, monitorCount);
        QList<Monitor> monitors = monitorsOf(ids, QString::fromUtf8(url));
        monitors.first().url = QString::fromUtf8(down);
        writeMonitors(dataDir, monitors);

        // So that no public service is asked for this host's icon.
        QImage icon(64, 64, QImage::Format_RGB32);
        icon.fill(Qt::blue);
        IconFolder(dataDir + u"/favicons"_s).write(u"127.0.0.1"_s, icon);
    }

    void enter(QProcessEnvironment &environment) const
    {
        environment.insert(u"HOME"_s, m_folder.path());
        environment.insert(u"XDG_DATA_HOME"_s, m_folder.filePath(u"data"_s));
        environment.insert(u"XDG_CONFIG_HOME"_s, m_folder.filePath(u"config"_s));
        environment.insert(u"XDG_CACHE_HOME"_s, m_folder.filePath(u"cache"_s));
        environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
    }

private:
    QTemporaryDir m_folder;
};

/// What a process has used since its start.
struct Usage
{
    double processorSeconds = 0;
    QHash<QString, double> wakeUps = {}; ///< Context switches, by thread.
};

/// The number after @p key in the lines of @p path; 0 if there is none.
double numberIn(const QString &path, const QByteArray &key)
{
    QFile file(path);
    (void)file.open(QIODevice::ReadOnly);
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(key))
            return line.mid(key.size()).simplified().split(' ').first().toDouble();
    }
    return 0;
}

/// Milliseconds from the start of @p program to its first frame; infinite if there is none.
double firstFrameOf(const QString &program, QProcessEnvironment environment)
{
    environment.insert(u"QT_LOGGING_RULES"_s, u"qt.scenegraph.time.renderloop=true"_s);
    BoundProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    QElapsedTimer timer;
    timer.start();
    process.start(program, QStringList());
    while (!process.nextLine().contains("Frame rendered")) {
        if (process.state() == QProcess::NotRunning)
            return std::numeric_limits<double>::infinity();
    }
    const auto elapsed = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    process.stop();
    return elapsed;
}

/// A running program. It writes no log of its frames: nothing reads that while it is watched, and
/// once the pipe is full, the program stands still.
class Candidate
{
public:
    Candidate(const QString &program, const QProcessEnvironment &environment)
    {
        m_process.setProcessEnvironment(environment);
        m_process.start(program, QStringList());
        (void)m_process.waitForStarted();
    }
    ~Candidate() { m_process.stop(); }
    Candidate(const Candidate &) = delete;
    Candidate &operator=(const Candidate &) = delete;

    /// In MB of 2^20 bytes.
    [[nodiscard]] double residentMemory() const
    {
        return numberIn(procFile(u"status"_s), "VmRSS:") / 1024;
    }
    [[nodiscard]] Usage usage() const
    {
        QFile file(procFile(u"stat"_s));
        (void)file.open(QIODevice::ReadOnly);
        const QByteArray text = file.readAll();
        const auto fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
        // Fields 14 and 15 of proc_pid_stat(5); the first two have been cut off here.
        Usage usage = {.processorSeconds =
                           (fields.value(11).toDouble() + fields.value(12).toDouble()) /
                           static_cast<double>(::sysconf(_SC_CLK_TCK))};
        const QDir tasks(procFile(u"task"_s));
        for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QString status = tasks.filePath(task + u"/status"_s);
            usage.wakeUps.insert(task, numberIn(status, "voluntary_ctxt_switches:") +
                                           numberIn(status, "nonvoluntary_ctxt_switches:"));
        }
        return usage;
    }

private:
    [[nodiscard]] QString procFile(const QString &name) const
    {
        return u"/proc/%1/%2"_s.arg(m_process.processId()).arg(name);
    }

    BoundProcess m_process;
};

double medianOf(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void print(const char *what, double ours, double bare, const char *unit, const char *bound)
{
    std::printf("%-36s %10.2f %10.2f  %-10s %s\n", what, ours, bare, unit, bound);
}

struct Programs
{
    QProcessEnvironment ours;
    QProcessEnvironment bare;

    static constexpr auto ourProgram = OSTREL_PROGRAM;
    static constexpr auto bareProgram = OSTREL_EMPTY_WINDOW;
};

void benchStart(const Programs &programs)
{
    std::vector<double> ours;
    std::vector<double> bare;
    for (int round = 0; round < startRounds; ++round) {
        ours.push_back(firstFrameOf(QString::fromUtf8(programs.ourProgram), programs.ours));
        bare.push_back(firstFrameOf(QString::fromUtf8(programs.bareProgram), programs.bare));
    }
    const double ratio = medianOf(ours) / medianOf(bare);
    print("start to first frame, median", medianOf(ours), medianOf(bare), "ms", "");
    print("  the same, as a ratio", ratio, 1, "", "at most 2.8");
}

struct Rate
{
    double processorPercent;
    double wakeUpsPerSecond;
};

/// The processor load and the wake-ups per second of @p candidate over a while.
Rate rateOf(const Candidate &candidate)
{
    const Usage before = candidate.usage();
    QElapsedTimer timer;
    timer.start();
    QThread::sleep(watching.count());
    const Usage after = candidate.usage();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    // A thread that has ended meanwhile isn't counted any more.
    double wakeUps = 0;
    for (auto thread = after.wakeUps.begin(); thread != after.wakeUps.end(); ++thread)
        wakeUps += *thread - before.wakeUps.value(thread.key());
    return {(after.processorSeconds - before.processorSeconds) / seconds * 100, wakeUps / seconds};
}

struct Running
{
    double memory;
    Rate visible;
    Rate hidden;
};

Running measureRunning(Desktop &desktop, const char *program,
                       const QProcessEnvironment &environment)
{
    const Candidate candidate(QString::fromUtf8(program), environment);
    QThread::sleep(settling.count());
    const double memory = candidate.residentMemory();
    const Rate visible = rateOf(candidate);
    if (!desktop.windows.closeWindow(u"Ostrel"_s))
        std::puts("the window could not be closed");
    QThread::sleep(settling.count());
    return {memory, visible, rateOf(candidate)};
}

} // namespace

int benchWindow()
{
    test::TestCertificates certificates;
    const BenchServer server(certificates.valid());
    Desktop desktop;
    if (!desktop.windows.isReady()) {
        std::puts("no desktop to measure on");
        return 1;
    }
    // Nothing listens at the second URL.
    const Home home(server.promptUrl(), "http://127.0.0.1:1/");
    Programs programs = {desktop.environment(), desktop.environment()};
    home.enter(programs.ours);

    std::printf("%-36s %10s %10s\n", "", "Ostrel", "empty");
    benchStart(programs);
    const Running bare = measureRunning(desktop, programs.bareProgram, programs.bare);
    const Running ours = measureRunning(desktop, programs.ourProgram, programs.ours);
    print("resident memory, window open", ours.memory, bare.memory, "MB", "at most 34 more");
    print("visible, one down: processor", ours.visible.processorPercent,
          bare.visible.processorPercent, "% of a core", "under 2");
    print("hidden: processor", ours.hidden.processorPercent, bare.hidden.processorPercent,
          "% of a core", "under 0.1");
    print("hidden: wake-ups", ours.hidden.wakeUpsPerSecond, bare.hidden.wakeUpsPerSecond,
          "per second", "under 2");
    return 0;
}

} // namespace ostrel::bench

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return ostrel::bench::benchWindow();
}
