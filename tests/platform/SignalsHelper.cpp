#include "FreedesktopTerminationSignal.h"

#include <QCoreApplication>

#include <cstdio>

// A program that waits for the signals that end it, and prints what happens to it, line by line.
//
//   SignalsHelper COUNT       ends after COUNT requests to end

namespace ostrel {
namespace {

void tell(const char *line)
{
    std::puts(line);
    std::fflush(stdout);
}

int awaitSignals(int count)
{
    const FreedesktopTerminationSignal signal;
    int left = count;
    QObject::connect(&signal, &TerminationSignal::terminationRequested, [&left] {
        tell("asked");
        if (--left == 0)
            QCoreApplication::quit();
    });
    tell("ready");
    const int status = QCoreApplication::exec();
    tell("ended");
    return status;
}

} // namespace
} // namespace ostrel

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return ostrel::awaitSignals(QCoreApplication::arguments().at(1).toInt());
}
