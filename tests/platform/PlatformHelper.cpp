#include "FreedesktopSingleInstance.h"
#include "FreedesktopTerminationSignal.h"
#include "PortableSingleInstance.h"

#include <QCoreApplication>

#include <cstdio>
#include <memory>

// A program that stands on one port in a process of its own, and tells on its output, line by
// line, what happens to it.
//
//   PlatformHelper claim freedesktop|portable FOLDER PATIENCE-IN-MS
//                                      renews its ownership at every request to end
//   PlatformHelper signals COUNT       ends after COUNT requests to end

namespace ostrel {
namespace {

void tell(const QByteArray &line)
{
    std::puts(line.constData());
    std::fflush(stdout);
}

std::unique_ptr<SingleInstance> makeInstance(const QString &platform, const QString &folder)
{
    if (platform == QStringLiteral("portable"))
        return std::make_unique<PortableSingleInstance>(folder);
    return std::make_unique<FreedesktopSingleInstance>(folder);
}

const char *nameOf(SingleInstance::Claim claim)
{
    switch (claim) {
    case SingleInstance::Claim::first:
        return "first";
    case SingleInstance::Claim::handedOver:
        return "handedOver";
    case SingleInstance::Claim::failed:
        return "failed";
    case SingleInstance::Claim::unusable:
        return "unusable";
    }
    Q_UNREACHABLE();
}

int claim(const QStringList &arguments)
{
    const auto instance = makeInstance(arguments.at(2), arguments.at(3));
    QObject::connect(instance.get(), &SingleInstance::activationRequested,
                     [](const QByteArray &token) { tell("activated " + token); });
    QObject::connect(instance.get(), &SingleInstance::ownershipLost, [] {
        tell("lost");
        QCoreApplication::quit();
    });
    // As the store does before it saves.
    const FreedesktopTerminationSignal question;
    QObject::connect(&question, &TerminationSignal::terminationRequested,
                     [&] { tell(instance->renew() ? "owned" : "not owned"); });
    const auto claim = instance->claim(std::chrono::milliseconds(arguments.at(4).toInt()));
    tell(nameOf(claim));
    if (claim != SingleInstance::Claim::first && claim != SingleInstance::Claim::unusable)
        return 0;
    return QCoreApplication::exec();
}

int awaitSignals(const QStringList &arguments)
{
    const FreedesktopTerminationSignal signal;
    int left = arguments.at(2).toInt();
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
    const QStringList arguments = QCoreApplication::arguments();
    return arguments.at(1) == QStringLiteral("claim") ? ostrel::claim(arguments)
                                                      : ostrel::awaitSignals(arguments);
}
