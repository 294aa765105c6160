#pragma once

#include <QByteArray>
#include <QFuture>
#include <QProcessEnvironment>

#include <chrono>
#include <future>

namespace ostrel {

/// A message bus that may answer late, or never. A thread of its own asks it, and no one connects
/// to it before it has answered: from then on connecting takes no time, while the bus library would
/// wait for a silent one for ever, holding locks that all its users need.
///
/// Main thread.
class MessageBus
{
public:
    /// Upper bound for how long startup waits for a bus. One that works answers in a millisecond.
    static constexpr std::chrono::milliseconds defaultPatience{250};

    /// Starts to ask the bus at @p addresses; empty if there is none.
    explicit MessageBus(const QByteArray &addresses);

    /// Waits at most @p patience for an answer; false if there is none.
    [[nodiscard]] bool answersWithin(std::chrono::milliseconds patience) const;
    /// Whether it may still answer.
    [[nodiscard]] bool isAwaited() const { return !m_answer.isFinished(); }
    /// Finishes when the bus answers; cancelled if there is none.
    [[nodiscard]] QFuture<void> answer() const { return m_answer; }
    [[nodiscard]] const QByteArray &addresses() const { return m_addresses; }

private:
    QByteArray m_addresses;
    QFuture<void> m_answer;
    std::shared_future<bool> m_isThere;
};

/// The session bus's addresses according to the environment. Empty if it names none: no bus is
/// started, which would take seconds and be of no use.
[[nodiscard]] QByteArray sessionBusAddresses();
[[nodiscard]] QByteArray systemBusAddresses();

/// Hides the session bus from the toolkit, which would wait for it. Call this while there is no
/// application object and no other thread that reads the environment.
void hideSessionBus();
/// The environment for programs that we start: nothing is hidden from them.
[[nodiscard]] QProcessEnvironment environmentOfPrograms();

} // namespace ostrel
