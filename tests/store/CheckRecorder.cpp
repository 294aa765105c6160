#include "MonitorStore.h"
#include "UuidText.h"

#include <QCoreApplication>

#include <string>
#include <unistd.h>

using namespace Qt::StringLiterals;

// Records checks into the given folder until it is killed. Prints a line for everything saved: the
// ids of a monitor and its check, or an edit's number.

namespace {

using namespace ostrel;

void print(std::string line)
{
    line += '\n';
    if (::write(STDOUT_FILENO, line.data(), line.size()) < 0)
        _exit(1);
}

std::string textOf(const QUuid &id)
{
    const auto text = formatUuid(id);
    return {text.data(), text.size()};
}

void addMonitors(MonitorStore &store)
{
    for (int i = 0; i < 3; ++i) {
        Monitor monitor;
        monitor.id = QUuid::createUuid();
        monitor.name = u"0"_s;
        store.addMonitor(monitor);
    }
}

void record(MonitorStore &store, const Monitor &monitor)
{
    Check check;
    check.id = QUuid::createUuid();
    check.monitorId = monitor.id;
    check.timestamp = systemNow();
    store.addCheck(check);
    print("check " + textOf(check.monitorId) + " " + textOf(check.id));
}

void edit(MonitorStore &store)
{
    Monitor monitor = store.monitors().first();
    monitor.name = QString::number(monitor.name.toInt() + 1);
    store.updateMonitor(monitor);
    print("edit " + monitor.name.toStdString());
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    MonitorStore store(QCoreApplication::arguments().at(1));
    if (store.monitors().isEmpty())
        addMonitors(store);
    print("ready");
    for (int i = 0; i < 1'000'000; ++i) {
        record(store, store.monitors().at(i % 3));
        if (i % 16 == 0)
            edit(store);
    }
    return 0;
}
