#include "AdmissionQueue.h"

#include <algorithm>
#include <utility>

namespace ostrel {

namespace {

bool hasFailed(const std::shared_ptr<const LookUp> &lookUp)
{
    return lookUp->isFinished && lookUp->addresses.empty();
}

bool isFinished(const std::shared_ptr<const LookUp> &lookUp)
{
    return lookUp->isFinished;
}

} // namespace

AdmissionQueue::AdmissionQueue(std::shared_ptr<Inbox> inbox, std::size_t maxLookUps)
    : m_maxLookUps(maxLookUps)
    , m_nameLookUps(std::move(inbox), maxLookUps)
{
}

void AdmissionQueue::push(std::unique_ptr<Transfer> transfer)
{
    // A transfer that has already begun is finished first.
    if (transfer->isUnderWay())
        m_waiting.push_front(std::move(transfer));
    else
        m_waiting.push_back(std::move(transfer));
}

bool AdmissionQueue::hasNext() const
{
    return next() != m_waiting.cend();
}

std::unique_ptr<Transfer> AdmissionQueue::takeNext()
{
    const auto found = next();
    if (found == m_waiting.cend())
        return nullptr;
    const auto index = static_cast<std::size_t>(found - m_waiting.cbegin());
    std::unique_ptr<Transfer> transfer = std::move(m_waiting[index]);
    m_waiting.erase(found);
    return transfer;
}

std::deque<std::unique_ptr<Transfer>>::const_iterator AdmissionQueue::next() const
{
    return std::find_if(m_waiting.cbegin(), m_waiting.cend(),
                        [this](const auto &transfer) { return canLookUp(transfer->names()); });
}

bool AdmissionQueue::canLookUp(const Transfer::Names &names) const
{
    return names.empty() || (m_lookingUp.size() < m_maxLookUps &&
                             std::ranges::all_of(names, [this](const Transfer::Name &name) {
                                 return m_nameLookUps.canBegin(name.place.host);
                             }));
}

void AdmissionQueue::lookUp(std::unique_ptr<Transfer> transfer)
{
    Transfer::LookUps lookUps;
    for (const Transfer::Name &name : transfer->names())
        lookUps.push_back(m_nameLookUps.begin(name.place.host));
    m_lookingUp.push_back({.transfer = std::move(transfer), .lookUps = std::move(lookUps)});
}

std::list<AdmissionQueue::LookingUp> AdmissionQueue::takeLookedUp()
{
    m_lookingUp.remove_if([this](LookingUp &lookingUp) { return hasEnded(lookingUp); });
    std::list<LookingUp> lookedUp;
    for (auto following = m_lookingUp.begin(); following != m_lookingUp.end();) {
        const auto lookingUp = following++;
        if (std::ranges::all_of(lookingUp->lookUps, isFinished))
            lookedUp.splice(lookedUp.end(), m_lookingUp, lookingUp);
    }
    return lookedUp;
}

bool AdmissionQueue::hasEnded(LookingUp &lookingUp)
{
    if (lookingUp.transfer->isOverdue()) {
        lookingUp.transfer->endInLookUp();
        return true;
    }
    repeatFailedLookUps(lookingUp);
    const auto failed = std::ranges::find_if(lookingUp.lookUps, hasFailed);
    if (failed == lookingUp.lookUps.end())
        return false;
    const auto index = static_cast<std::size_t>(failed - lookingUp.lookUps.begin());
    lookingUp.transfer->endWithoutAddress(lookingUp.transfer->names()[index]);
    return true;
}

/// Starts a look-up again if it failed but had begun before this transfer's admission: the cause
/// may be gone since.
void AdmissionQueue::repeatFailedLookUps(LookingUp &lookingUp)
{
    for (std::shared_ptr<const LookUp> &lookUp : lookingUp.lookUps) {
        if (hasFailed(lookUp) && lookUp->start < lookingUp.transfer->admission())
            lookUp = m_nameLookUps.begin(lookUp->name);
    }
}

Transfer::Clock::time_point AdmissionQueue::nextDeadline() const
{
    auto next = Transfer::Clock::time_point::max();
    for (const LookingUp &lookingUp : m_lookingUp)
        next = std::min(next, lookingUp.transfer->deadline());
    return next;
}

void AdmissionQueue::clear()
{
    m_lookingUp.clear();
    m_waiting.clear();
    m_nameLookUps.forget();
}

} // namespace ostrel
