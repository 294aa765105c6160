#pragma once

#include "FileDescriptor.h"
#include "TerminationSignal.h"

#include <QSocketNotifier>

#include <csignal>
#include <map>
#include <memory>

namespace ostrel {

/// SIGTERM, SIGINT and SIGHUP, passed from their handler to the event loop through a pipe. One
/// object at a time. Its destructor restores the previous handlers, unless a signal has asked the
/// program to end: then another one must not kill it meanwhile.
class FreedesktopTerminationSignal final : public TerminationSignal
{
    Q_OBJECT

public:
    explicit FreedesktopTerminationSignal(QObject *parent = nullptr);
    ~FreedesktopTerminationSignal() override;

private:
    void install(int signalNumber);
    void drain();

    FileDescriptor m_readEnd;
    FileDescriptor m_writeEnd;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::map<int, struct sigaction> m_previous; ///< Keyed by signal number.
    bool m_isRequested = false;
};

} // namespace ostrel
