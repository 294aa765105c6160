#include "KeyboardItem.h"

namespace ostrel {

KeyboardItem::KeyboardItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setActiveFocusOnTab(true);
    connect(this, &QQuickItem::activeFocusChanged, this, &KeyboardItem::visualFocusChanged);
    connect(this, &KeyboardItem::focusReasonChanged, this, &KeyboardItem::visualFocusChanged);
}

void KeyboardItem::setFocusReason(Qt::FocusReason reason)
{
    if (m_focusReason == reason)
        return;
    m_focusReason = reason;
    Q_EMIT focusReasonChanged();
}

bool KeyboardItem::visualFocus() const
{
    const bool isByKeys = m_focusReason == Qt::TabFocusReason ||
                          m_focusReason == Qt::BacktabFocusReason ||
                          m_focusReason == Qt::ShortcutFocusReason;
    return isByKeys && hasActiveFocus();
}

void KeyboardItem::focusInEvent(QFocusEvent *event)
{
    QQuickItem::focusInEvent(event);
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
        return;
    setFocusReason(event->reason());
    if (visualFocus())
        Q_EMIT reachedByKey();
}

} // namespace ostrel
