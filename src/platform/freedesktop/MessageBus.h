#pragma once

#include <QByteArray>
#include <QFuture>
#include <QProcessEnvironment>

#include <chrono>
#include <future>

namespace ostrel {

/// A message bus that may answer late, or never. It is looked for on a thread of its own, and
/// nobody connects to it before it has answered: from then on connecting takes no time, while the
/// bus library would wait for a silent one for ever, with locks that all its users need.
///
/// Main thread.
class MessageBus
{
public:
    /// How long a start waits for a bus at most. One that works answers in a millisecond.
    static constexpr std::chrono::milliseconds defaultPatience{250};

    /// Begins to look for the bus at @p addresses; empty where there is none.
    explicit MessageBus(const QByteArray &addresses);

    /// Waits for an answer for at most @p patience; false where there is none.
    [[nodiscard]] bool answersWithin(std::chrono::milliseconds patience) const;
    /// Whether it may answer yet.
    [[nodiscard]] bool isAwaited() const { return !m_answer.isFinished(); }
    /// Finishes when the bus answers; cancelled where there is none.
    [[nodiscard]] QFuture<void> answer() const { return m_answer; }
    [[nodiscard]] const QByteArray &addresses() const { return m_addresses; }

private:
    QByteArray m_addresses;
    QFuture<void> m_answer;
    std::shared_future<bool> m_isThere;
};

/// Where the environment says that the session's bus is. Empty where it names none: nobody is
/// asked to start one, which takes seconds and serves nobody.
[[nodiscard]] QByteArray sessionBusAddresses();
[[nodiscard]] QByteArray systemBusAddresses();

/// Takes the session's bus out of the toolkit's sight, which would wait for it. While there is no
/// application object and no other thread that reads the environment.
void hideSessionBus();
/// What programs that we start are to find in their environment: nothing is hidden from them.
[[nodiscard]] QProcessEnvironment environmentOfPrograms();

} // namespace ostrel
