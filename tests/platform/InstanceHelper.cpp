#include "SingleInstance.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

// A program that claims a folder in a process of its own, and prints what happens to it, line by
// line. At every line of its input it renews its ownership, as the store does before it saves.
//
// As a command it asks "greet", which the first answers with "hello", and prints the answer.
//
//   InstanceHelper FOLDER PATIENCE-IN-MS [add-monitor|quit|ask]

namespace ostrel {
namespace {

void tell(const QByteArray &line)
{
    std::puts(line.constData());
    std::fflush(stdout);
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

const char *nameOf(RequestChannel::Result result)
{
    switch (result) {
    case RequestChannel::Result::answered:
        return "answered";
    case RequestChannel::Result::ours:
        return "ours";
    case RequestChannel::Result::silent:
        return "silent";
    case RequestChannel::Result::unusable:
        return "unusable";
    }
    Q_UNREACHABLE();
}

void renewAtEveryLine(SingleInstance &instance, const QSocketNotifier &input)
{
    QObject::connect(&input, &QSocketNotifier::activated, &instance, [&instance] {
        char byte = 0;
        if (::read(STDIN_FILENO, &byte, 1) != 1)
            return std::exit(1);
        if (byte == '\n')
            tell(instance.renew() ? "owned" : "not owned");
    });
}

StartRequest requestNamed(const QString &name)
{
    if (name == QLatin1String("quit"))
        return StartRequest::quit;
    return name.isEmpty() ? StartRequest::show : StartRequest::addMonitor;
}

int claim(const QString &folder, std::chrono::milliseconds patience, StartRequest request)
{
    SingleInstance instance(folder);
    QObject::connect(&instance, &SingleInstance::activationRequested,
                     [](const QByteArray &token) { tell("activated " + token); });
    QObject::connect(&instance, &SingleInstance::newMonitorRequested,
                     [](const QByteArray &token) { tell("adds a monitor " + token); });
    QObject::connect(&instance, &SingleInstance::quitRequested, [] { tell("quits"); });
    QObject::connect(&instance, &SingleInstance::ownershipLost, [] {
        tell("lost");
        QCoreApplication::quit();
    });
    QObject::connect(&instance, &SingleInstance::requested,
                     [](const QByteArray &asked, const SingleInstance::Reply &reply) {
                         reply(asked == "greet" ? "hello" : "what?");
                     });
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    renewAtEveryLine(instance, input);
    const auto claim = instance.claim(patience, request);
    tell(nameOf(claim));
    if (claim != SingleInstance::Claim::first && claim != SingleInstance::Claim::unusable)
        return 0;
    return QCoreApplication::exec();
}

int ask(const QString &folder, std::chrono::milliseconds patience)
{
    SingleInstance instance(folder);
    const auto answer = instance.ask("greet", patience);
    tell(nameOf(answer.result));
    tell(answer.line);
    return 0;
}

} // namespace
} // namespace ostrel

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const std::chrono::milliseconds patience(arguments.at(2).toInt());
    if (arguments.value(3) == QLatin1String("ask"))
        return ostrel::ask(arguments.at(1), patience);
    return ostrel::claim(arguments.at(1), patience, ostrel::requestNamed(arguments.value(3)));
}
