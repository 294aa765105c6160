#include "SidebarWidth.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString widthKey()
{
    return u"sidebarWidth"_s;
}

} // namespace

SidebarWidth::SidebarWidth(QObject *parent)
    : QObject(parent)
{
}

qreal SidebarWidth::width() const
{
    if (givesWay())
        return m_minimum;
    // The file may have been edited by hand.
    const qreal kept = m_values.value(widthKey(), m_ideal).toReal();
    return std::round(std::max(m_minimum, std::min(kept, m_maximum)));
}

void SidebarWidth::drag(qreal width)
{
    m_values.setValue(widthKey(), std::max(m_minimum, std::min(width, m_maximum)));
    Q_EMIT changed();
}

} // namespace ostrel
