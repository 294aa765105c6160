#pragma once

#include <QByteArray>
#include <QHash>

#include <chrono>
#include <memory>
#include <sys/socket.h>
#include <vector>

namespace ostrel {

class Inbox;

/// One look-up of a name, in both families of addresses.
struct LookUp
{
    using Clock = std::chrono::steady_clock;

    QByteArray name;
    Clock::time_point start;
    bool isFinished = false;
    std::vector<sockaddr_storage> addresses; ///< In the resolver's order. None if it failed.
};

/// Looks up names on threads of its own: one for each look-up, since nothing makes a resolver give
/// up before its time. All of them are counted, also those for which nobody waits any more.
///
/// Belongs to the I/O thread. Look-ups that outlive it end unheard.
class NameLookUps
{
public:
    /// Threads tell of their ends through @p inbox.
    NameLookUps(std::shared_ptr<Inbox> inbox, std::size_t maxThreads);

    /// Whether begin() would keep to the bound.
    [[nodiscard]] bool canBegin(const QByteArray &name) const;

    /// The look-up of @p name that is under way, also where nobody waits for it any more, or else a
    /// new one, whatever the bound.
    [[nodiscard]] std::shared_ptr<const LookUp> begin(const QByteArray &name);

    /// What is under way is worthless from now on, and is joined by nobody.
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
