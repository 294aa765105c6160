#pragma once

#include <QByteArray>
#include <QHash>

#include <chrono>
#include <memory>
#include <sys/socket.h>
#include <vector>

namespace ostrel {

class Inbox;

/// One look-up of a name, in both address families.
struct LookUp
{
    using Clock = std::chrono::steady_clock;

    QByteArray name;
    Clock::time_point start;
    bool isFinished = false;
    std::vector<sockaddr_storage> addresses; ///< In the resolver's order. Empty if it failed.
};

/// Looks up names on threads of its own: one for each look-up, since a resolver can't be made to
/// give up early. All threads are counted, even if no transfer waits for them any more.
///
/// Belongs to the I/O thread. The results of look-ups that outlive it are dropped.
class NameLookUps
{
public:
    /// Threads report their ends through @p inbox.
    NameLookUps(std::shared_ptr<Inbox> inbox, std::size_t maxThreads);

    /// Whether begin() would stay within the bound.
    [[nodiscard]] bool canBegin(const QByteArray &name) const;

    /// Returns the look-up of @p name that is in progress, even if no transfer waits for it any
    /// more, or else starts a new one, regardless of the bound.
    [[nodiscard]] std::shared_ptr<const LookUp> begin(const QByteArray &name);

    /// Look-ups in progress are worthless from now on: begin() no longer returns them.
    void forget() { m_underWay.clear(); }

private:
    void start(const std::shared_ptr<LookUp> &lookUp);
    void didEnd(const std::shared_ptr<LookUp> &lookUp, std::vector<sockaddr_storage> addresses);

    std::shared_ptr<Inbox> m_inbox;
    std::size_t m_maxThreads;
    std::size_t m_threads = 0;
    QHash<QByteArray, std::shared_ptr<LookUp>> m_underWay;
};

} // namespace ostrel
