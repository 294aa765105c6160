#include "NetworkPresence.h"

namespace ostrel {

void NetworkPresence::setPresent(bool isPresent)
{
    if (m_isPresent == isPresent)
        return;
    m_isPresent = isPresent;
    Q_EMIT isPresentChanged();
}

} // namespace ostrel
