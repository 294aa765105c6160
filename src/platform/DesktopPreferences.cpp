#include "DesktopPreferences.h"

namespace ostrel {

void DesktopPreferences::setValues(const Values &values)
{
    if (m_values == values)
        return;
    m_values = values;
    Q_EMIT valuesChanged();
}

} // namespace ostrel
