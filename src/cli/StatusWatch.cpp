#include "StatusWatch.h"

#include "AtomicFile.h"
#include "StatusCommand.h"
#include "StoredRecords.h"

#include <utility>

namespace ostrel {

namespace {

/// Clears the screen and goes to its first line (ECMA-48).
constexpr auto clearScreen = "\x1b[H\x1b[2J";

} // namespace

StatusWatch::StatusWatch(const StatusInvocation &invocation, Medium medium, Print print,
                         std::chrono::milliseconds interval, QObject *parent)
    : QObject(parent)
    , m_invocation(invocation)
    , m_medium(medium)
    , m_print(std::move(print))
{
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &StatusWatch::look);
}

bool StatusWatch::start()
{
    if (!show())
        return false;
    m_timer.start();
    return true;
}

bool StatusWatch::hasChanged() const
{
    const QString &folder = m_invocation.dataDir;
    return !AtomicFile(StoredRecords::monitorsPath(folder)).holds(m_monitors) ||
           !AtomicFile(StoredRecords::checksPath(folder)).holds(m_checks);
}

bool StatusWatch::show()
{
    const QString &folder = m_invocation.dataDir;
    m_monitors = AtomicFile(StoredRecords::monitorsPath(folder)).snapshot();
    m_checks = AtomicFile(StoredRecords::checksPath(folder)).snapshot();
    const auto status = readStatus(m_invocation);
    if (!status)
        return false;
    const QByteArray separator = m_hasShown ? "\n" : "";
    m_print((m_medium == Medium::terminal ? clearScreen : separator) + *status);
    m_hasShown = true;
    return true;
}

void StatusWatch::look()
{
    if (hasChanged() && !show())
        Q_EMIT failed();
}

} // namespace ostrel
