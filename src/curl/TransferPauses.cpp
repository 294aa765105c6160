#include "TransferPauses.h"

#include <algorithm>

namespace ostrel {

void TransferPauses::end(Clock::time_point now)
{
    m_before = total(now);
    m_since.reset();
}

TransferPauses::Clock::duration TransferPauses::total(Clock::time_point now) const
{
    return m_before + (m_since ? now - *m_since : Clock::duration::zero());
}

std::chrono::milliseconds TransferPauses::extraTime() const
{
    return std::min(std::chrono::ceil<std::chrono::milliseconds>(m_before), grace);
}

TransferPauses::Clock::time_point TransferPauses::limit(Clock::time_point deadline,
                                                        bool isLengthKnown) const
{
    const Clock::time_point begin = *m_since - m_before;
    const Clock::time_point longest = begin + m_timeout / 4;
    if (isLengthKnown)
        return longest;
    return std::min(longest, std::max(begin + grace, deadline - m_timeout / 2));
}

} // namespace ostrel
