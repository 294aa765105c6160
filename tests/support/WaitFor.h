#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <chrono>

namespace ostrel::test {

/// Runs the event loop until @p condition holds; false if it doesn't within @p patience. The
/// default is a minute, since a busy machine may stand still for many seconds.
template<typename Condition>
[[nodiscard]] bool waitFor(Condition condition,
                           std::chrono::milliseconds patience = std::chrono::minutes(1))
{
    const QDeadlineTimer deadline(patience);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace ostrel::test
