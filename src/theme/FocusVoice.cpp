#include "FocusVoice.h"

#include <QAccessible>

namespace ostrel {

void FocusVoice::setItem(QQuickItem *item)
{
    if (m_item == item)
        return;
    m_item = item;
    if (item && QAccessible::isActive()) {
        QAccessibleEvent event(item, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
    Q_EMIT itemChanged();
}

} // namespace ostrel
