#include "BareLoader.h"
#include "FullFolder.h"
#include "MonitorStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// Prints what recording, loading, storing and querying cost, each beside a bare program that does
// the same work in the same run. Takes the folder to work in, on the file system to be measured; if
// there is none, a temporary folder.

namespace {

using namespace ostrel;
using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

using bench::CheckSource;
using bench::checksPath;
using bench::checksPerMonitor;

struct Figure
{
    double best = 0;
    double median = 0;
};

Figure figureOf(std::vector<double> times)
{
    std::ranges::sort(times);
    return {times.front(), times[times.size() / 2]};
}

template<typename Work>
double microsecondsOf(Work work)
{
    const auto begin = Clock::now();
    work();
    return Microseconds(Clock::now() - begin).count();
}

template<typename Work>
Figure measure(int rounds, Work work)
{
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i)
        times.push_back(microsecondsOf(work));
    return figureOf(times);
}

std::size_t heapBytes()
{
    const auto info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// One write(2) of the same bytes, and the rename.
void writeBare(const std::string &path, const QByteArray &bytes)
{
    const std::string temporary = path + ".bare";
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const auto written = ::write(file, bytes.constData(), std::size_t(bytes.size()));
    ::close(file);
    ::rename(temporary.c_str(), path.c_str());
    if (written != bytes.size())
        std::puts("the bare write was cut short");
}

void printRow(const char *what, int monitors, Figure ours, Figure bare)
{
    std::printf("%-10s %8d %14.1f %14.1f %14.1f %14.1f %8.2f %8.2f\n", what, monitors, ours.best,
                ours.median, bare.best, bare.median, ours.best / bare.best,
                ours.median / bare.median);
}

void benchLoading(const QString &folder, int monitors)
{
    const int rounds = monitors == 100 ? 9 : 41;
    std::vector<double> ours;
    std::vector<double> bare;
    // In turns, so that a slow moment of the machine affects both.
    for (int i = 0; i < rounds; ++i) {
        std::optional<MonitorStore> store;
        ours.push_back(microsecondsOf([&] { store.emplace(folder); }));
        store.reset();
        std::vector<bench::PlainHistory> histories;
        bare.push_back(microsecondsOf([&] { histories = bench::loadBare(checksPath(folder)); }));
    }
    printRow("load", monitors, figureOf(ours), figureOf(bare));
}

void benchRecording(const QString &folder, int monitors, const std::vector<QUuid> &ids)
{
    const int rounds = monitors == 100 ? 25 : 300;
    CheckSource source;
    MonitorStore store(folder);
    std::vector<double> ours;
    std::vector<double> bare;
    const QString bareFolder = folder + u"/bare"_s;
    QDir().mkpath(bareFolder);
    QFile file(folder + u"/checks.json"_s);
    (void)file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const std::string path = checksPath(bareFolder);
    writeBare(path, bytes);
    for (int i = 0; i < rounds; ++i) {
        const Check check = source.next(ids[std::size_t(i) % ids.size()]);
        ours.push_back(microsecondsOf([&] { store.addCheck(check); }));
        bare.push_back(microsecondsOf([&] { writeBare(path, bytes); }));
    }
    printRow("record", monitors, figureOf(ours), figureOf(bare));
}

void benchMemory(const QString &folder, int monitors, const std::vector<QUuid> &ids)
{
    CheckSource source;
    const std::size_t before = heapBytes();
    MonitorStore store(folder);
    const double count = double(monitors) * double(checksPerMonitor);
    std::printf("%-10s %8d %14.1f bytes for each check after loading\n", "memory", monitors,
                double(heapBytes() - before) / count);
    if (monitors > 1)
        return;
    // Through every phase of trimming, and further until no loaded check is left.
    double worst = 0;
    for (std::size_t i = 0; i < checksPerMonitor + 100; ++i) {
        store.addCheck(source.next(ids.front()));
        worst = std::max(worst, double(heapBytes() - before) / count);
    }
    std::printf("%-10s %8d %14.1f bytes at most while recording 2100 more\n", "memory", monitors,
                worst);
}

void benchQueries(const QString &folder, const std::vector<QUuid> &ids)
{
    const MonitorStore store(folder, MonitorStore::Access::readOnly, bench::fullFolderNow);
    const QUuid id = ids.front();
    const auto window = std::chrono::hours(720);
    Monitor monitor;
    monitor.id = id;
    double sink = 0;
    const auto print = [&](const char *what, Figure figure) {
        std::printf("%-24s %14.2f %14.2f us\n", what, figure.best, figure.median);
    };
    print("status", measure(2001, [&] { sink += double(store.status(monitor)); }));
    print("uptime", measure(2001, [&] { sink += store.uptime(id, window); }));
    print("averageResponseTime",
          measure(2001, [&] { sink += store.averageResponseTime(id, window); }));
    print("recentChecks",
          measure(2001, [&] { sink += double(store.recentChecks(id, window).size()); }));
    if (sink == 0)
        std::puts("no query has answered");
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir temporary;
    const QString root = argc > 1 ? QFile::decodeName(argv[1]) : temporary.path();
    std::printf("%-10s %8s %14s %14s %14s %14s %8s %8s\n", "", "monitors", "best us", "median us",
                "bare best", "bare median", "best x", "median x");
    for (const int monitors : {1, 10, 100}) {
        const QString folder = root + u"/bench-%1"_s.arg(monitors);
        const auto ids = bench::fillFolder(folder, monitors);
        benchLoading(folder, monitors);
        benchMemory(folder, monitors, ids);
        benchRecording(folder, monitors, ids);
        if (monitors == 1)
            benchQueries(folder, ids);
        QDir(folder).removeRecursively();
    }
    return 0;
}
