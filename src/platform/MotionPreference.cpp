#include "MotionPreference.h"

namespace ostrel {

void MotionPreference::setReduced(bool isReduced)
{
    if (m_isReduced == isReduced)
        return;
    m_isReduced = isReduced;
    Q_EMIT isReducedChanged();
}

} // namespace ostrel
