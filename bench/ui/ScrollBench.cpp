// How long the main thread is busy with each frame while a thousand monitors scroll by.

#include "BenchWindow.h"
#include "FullFolder.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace ostrel::bench {

namespace {

constexpr int monitorCount = 1000;
constexpr int frames = 300;
/// A quick turn of the wheel: more than a row for each frame.
constexpr double pixelsPerFrame = 60;

/// A store that has checked each of its monitors once.
void fill(MonitorStore &store)
{
    CheckSource source;
    for (const Monitor &monitor : monitorsOf(std::vector<QUuid>(monitorCount), u"shop"_s)) {
        Monitor added = monitor;
        added.id = QUuid::createUuid();
        store.addMonitor(added);
        store.addCheck(source.next(added.id));
    }
}

void print(const char *what, BenchWindow &window, const QString &view)
{
    QQuickItem &scrolled = window.item(view);
    std::vector<double> times;
    for (int frame = 0; frame < frames; ++frame) {
        const double began = threadTime();
        scrolled.setProperty("contentY", scrolled.property("contentY").toDouble() + pixelsPerFrame);
        window.drawFrame();
        times.push_back(threadTime() - began);
    }
    std::ranges::sort(times);
    std::printf("%-36s %10.2f %10.2f %10.2f  ms\n", what, times[times.size() / 2],
                times[times.size() * 95 / 100], times.back());
}

} // namespace

int benchScroll()
{
    const QTemporaryDir folder;
    MonitorStore store(folder.path(), MonitorStore::Access::readWrite, fullFolderNow);
    fill(store);
    BenchWindow window(store);
    if (!window.show()) {
        std::puts("no window to measure");
        return 1;
    }
    std::printf("%-36s %10s %10s %10s\n", "main thread, for each frame", "median", "95 %", "most");
    print("the list (a frame has 16.7)", window, u"list"_s);
    print("the dashboard", window, u"grid"_s);
    return 0;
}

} // namespace ostrel::bench

int main(int argc, char **argv)
{
    return ostrel::bench::runInWindow(argc, argv, ostrel::bench::benchScroll);
}
