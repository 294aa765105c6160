#include "ButtonItem.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace ostrel {

namespace {

bool confirms(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

ButtonItem::ButtonItem(QQuickItem *parent)
    : KeyboardItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    connect(this, &ButtonItem::backgroundChanged, this, [this] {
        m_background->setParentItem(this);
        m_background->setZ(-1);
        layOut();
    });
    connect(this, &ButtonItem::contentItemChanged, this, [this] {
        m_contentItem->setParentItem(this);
        layOut();
    });
    connect(this, &ButtonItem::paddingChanged, this, &ButtonItem::layOut);
}

void ButtonItem::accessiblePressAction()
{
    if (isEnabled())
        press();
}

void ButtonItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    KeyboardItem::geometryChange(newGeometry, oldGeometry);
    layOut();
}

void ButtonItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    KeyboardItem::itemChange(change, value);
    if (change == ItemEnabledHasChanged || change == ItemVisibleHasChanged) {
        setDown(false);
        if (!value.boolValue)
            setHovered(false);
    }
}

void ButtonItem::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space && !confirms(*event)) {
        KeyboardItem::keyPressEvent(event);
        return;
    }
    // A key that is held down presses once.
    if (event->isAutoRepeat())
        return;
    if (confirms(*event))
        press();
    else
        setDown(true);
}

void ButtonItem::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space)
        KeyboardItem::keyReleaseEvent(event);
    else if (!event->isAutoRepeat())
        letGo();
}

void ButtonItem::focusOutEvent(QFocusEvent *event)
{
    KeyboardItem::focusOutEvent(event);
    setDown(false);
}

void ButtonItem::mousePressEvent(QMouseEvent * /*event*/)
{
    setDown(true);
}

void ButtonItem::mouseMoveEvent(QMouseEvent *event)
{
    setDown(contains(event->position()));
}

void ButtonItem::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    letGo();
}

void ButtonItem::mouseUngrabEvent()
{
    setDown(false);
}

void ButtonItem::hoverEnterEvent(QHoverEvent * /*event*/)
{
    setHovered(true);
}

void ButtonItem::hoverLeaveEvent(QHoverEvent * /*event*/)
{
    setHovered(false);
}

void ButtonItem::press()
{
    if (m_isCheckable) {
        m_isChecked = !m_isChecked;
        Q_EMIT checkedChanged();
    }
    Q_EMIT clicked();
}

void ButtonItem::letGo()
{
    if (!m_isDown)
        return;
    setDown(false);
    press();
}

void ButtonItem::setDown(bool isDown)
{
    if (m_isDown == isDown)
        return;
    m_isDown = isDown;
    Q_EMIT downChanged();
}

void ButtonItem::setHovered(bool isHovered)
{
    if (m_isHovered == isHovered)
        return;
    m_isHovered = isHovered;
    Q_EMIT hoveredChanged();
}

void ButtonItem::layOut()
{
    if (m_background)
        m_background->setSize(size());
    if (m_contentItem) {
        m_contentItem->setPosition({m_horizontalPadding, m_verticalPadding});
        m_contentItem->setSize({std::max(0.0, width() - 2 * m_horizontalPadding),
                                std::max(0.0, height() - 2 * m_verticalPadding)});
    }
}

} // namespace ostrel
