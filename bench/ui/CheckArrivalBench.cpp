// How long the main thread is busy with one new check, beyond the store's save: 200 monitors with
// full histories, the whole window open on one of them.

#include "BenchWindow.h"
#include "FullFolder.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace ostrel::bench {

namespace {

constexpr int monitorCount = 200;
constexpr int rounds = 60;

class ArrivalBench
{
public:
    explicit ArrivalBench(const QString &folder)
        : m_store(folder, MonitorStore::Access::readWrite, fullFolderNow)
    {
        // Connected first, so called first: when the save has ended.
        QObject::connect(&m_store, &MonitorStore::checksChanged,
                         [this] { m_saved = threadTime(); });
        m_window.emplace(m_store);
    }

    [[nodiscard]] bool show() { return m_window->show(); }
    void open(int row) { m_window->open(row); }

    /// Prints the times of checks of the monitor in row @p row.
    void print(const char *what, qsizetype row)
    {
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round) {
            Check check = m_source.next(m_store.monitors().at(row).id);
            check.timestamp = fullFolderNow() - std::chrono::seconds(rounds - round);
            m_store.addCheck(check);
            m_window->settle();
            times.push_back(threadTime() - m_saved);
        }
        std::ranges::sort(times);
        std::printf("%-36s %10.2f %10.2f  ms\n", what, times[times.size() / 2], times.back());
    }

private:
    MonitorStore m_store;
    CheckSource m_source;
    std::optional<BenchWindow> m_window;
    double m_saved = 0;
};

} // namespace

int benchArrival()
{
    const QTemporaryDir folder;
    writeMonitors(folder.path(), monitorsOf(fillFolder(folder.path(), monitorCount), u"shop"_s));
    ArrivalBench bench(folder.path());
    if (!bench.show()) {
        std::puts("no window to measure");
        return 1;
    }
    std::printf("%-36s %10s %10s\n", "main thread, beyond the save", "median", "most");
    bench.print("dashboard open", 0);
    bench.open(0);
    bench.print("its page open (under 8)", 0);
    bench.print("another's page open", 1);
    bench.print("another's page open, row unseen", monitorCount - 1);
    return 0;
}

} // namespace ostrel::bench

int main(int argc, char **argv)
{
    return ostrel::bench::runInWindow(argc, argv, ostrel::bench::benchArrival);
}
