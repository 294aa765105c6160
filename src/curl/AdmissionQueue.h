#pragma once

#include "NameLookUps.h"
#include "Transfer.h"

#include <cstddef>
#include <deque>
#include <list>
#include <memory>

namespace ostrel {

class Inbox;

/// The transfers that don't run yet: those that wait for admission, in order, and those that have
/// been admitted and wait for the addresses of their names. A transfer whose names can't be looked
/// up yet, because other look-ups hang, is overtaken by those that need none.
///
/// Belongs to the I/O thread.
class AdmissionQueue
{
public:
    /// A transfer whose clock runs while its names are looked up.
    struct LookingUp
    {
        std::unique_ptr<Transfer> transfer;
        Transfer::LookUps lookUps;
    };

    /// Look-ups report their ends through @p inbox. At most @p maxLookUps transfers look up names
    /// at once.
    AdmissionQueue(std::shared_ptr<Inbox> inbox, std::size_t maxLookUps);

    /// A transfer that has already begun goes to the front, any other to the end.
    void push(std::unique_ptr<Transfer> transfer);
    /// Whether takeNext() would return one.
    [[nodiscard]] bool hasNext() const;
    /// The first transfer whose names can be looked up now. Null if none.
    [[nodiscard]] std::unique_ptr<Transfer> takeNext();

    /// Starts to look up the names of @p transfer, which has been admitted.
    void lookUp(std::unique_ptr<Transfer> transfer);
    /// The transfers whose names have all been looked up. Ends those with a failed look-up, and
    /// those whose time-out has passed.
    [[nodiscard]] std::list<LookingUp> takeLookedUp();
    [[nodiscard]] std::size_t lookingUpCount() const { return m_lookingUp.size(); }
    /// The earliest deadline of those that look up names; the maximum time point if none do.
    [[nodiscard]] Transfer::Clock::time_point nextDeadline() const;

    /// Destroys all transfers, and forgets all look-ups.
    void clear();

private:
    [[nodiscard]] bool canLookUp(const Transfer::Names &names) const;
    [[nodiscard]] std::deque<std::unique_ptr<Transfer>>::const_iterator next() const;
    [[nodiscard]] bool hasEnded(LookingUp &lookingUp);
    void repeatFailedLookUps(LookingUp &lookingUp);

    const std::size_t m_maxLookUps;
    NameLookUps m_nameLookUps;
    std::deque<std::unique_ptr<Transfer>> m_waiting;
    std::list<LookingUp> m_lookingUp;
};

} // namespace ostrel
