#include "FreedesktopTerminationSignal.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace ostrel {

namespace {

/// The descriptor that the handler writes to; -1 for none. A handler may only touch a lock-free
/// atomic.
std::atomic<int> handlerEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void tellOfSignal(int)
{
    const int interruptedErrno = errno;
    const char byte = 0;
    // If the pipe is full, the event loop is notified already.
    [[maybe_unused]] const auto written = ::write(handlerEnd.load(), &byte, 1);
    errno = interruptedErrno;
}

} // namespace

FreedesktopTerminationSignal::FreedesktopTerminationSignal(QObject *parent)
    : TerminationSignal(parent)
{
    std::array<int, 2> ends = {-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_readEnd = FileDescriptor(ends[0]);
    m_writeEnd = FileDescriptor(ends[1]);
    m_notifier = std::make_unique<QSocketNotifier>(m_readEnd.number(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this,
            &FreedesktopTerminationSignal::drain);
    handlerEnd = m_writeEnd.number();
    for (const int signalNumber : {SIGTERM, SIGINT, SIGHUP})
        install(signalNumber);
}

FreedesktopTerminationSignal::~FreedesktopTerminationSignal()
{
    for (const auto &[signalNumber, action] : m_previous) {
        if (m_isRequested)
            std::signal(signalNumber, SIG_IGN);
        else
            ::sigaction(signalNumber, &action, nullptr);
    }
    handlerEnd = -1;
}

void FreedesktopTerminationSignal::install(int signalNumber)
{
    struct sigaction previous = {};
    ::sigaction(signalNumber, nullptr, &previous);
    // A program started with nohup outlives its terminal.
    if (signalNumber == SIGHUP && previous.sa_handler == SIG_IGN)
        return;
    struct sigaction action = {};
    action.sa_handler = tellOfSignal;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    if (::sigaction(signalNumber, &action, nullptr) == 0)
        m_previous.emplace(signalNumber, previous);
}

void FreedesktopTerminationSignal::drain()
{
    std::array<char, 64> bytes;
    while (::read(m_readEnd.number(), bytes.data(), bytes.size()) > 0) {
    }
    m_isRequested = true;
    Q_EMIT terminationRequested();
}

} // namespace ostrel
