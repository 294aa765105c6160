#include "GalleryHand.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

#include <chrono>

namespace ostrel {

namespace {

using namespace std::chrono_literals;

QQuickItem *findIn(QQuickItem *item, const QString &objectName)
{
    if (item->objectName() == objectName && item->isVisible())
        return item;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *found = findIn(child, objectName))
            return found;
    }
    return nullptr;
}

QPointF middleOf(const QQuickItem *item)
{
    return item->mapToScene(item->boundingRect().center());
}

} // namespace

GalleryHand::GalleryHand(QQuickWindow &window)
    : m_window(window)
{
}

QQuickItem *GalleryHand::item(const char *objectName) const
{
    return findIn(m_window.contentItem(), QLatin1String(objectName));
}

QQuickItem *GalleryHand::itemOf(const char *objectName, int index) const
{
    QQuickItem *found = nullptr;
    if (QQuickItem *list = item(objectName))
        QMetaObject::invokeMethod(list, "itemAtIndex", Q_RETURN_ARG(QQuickItem *, found),
                                  Q_ARG(int, index));
    return found;
}

void GalleryHand::point(const QQuickItem *target)
{
    if (target)
        send(QEvent::MouseMove, middleOf(target), Qt::NoButton, Qt::NoButton);
}

void GalleryHand::press(const QQuickItem *target)
{
    point(target);
    if (target)
        send(QEvent::MouseButtonPress, middleOf(target), Qt::LeftButton, Qt::LeftButton);
}

void GalleryHand::click(const QQuickItem *target, Qt::MouseButton button)
{
    if (!target)
        return;
    point(target);
    send(QEvent::MouseButtonPress, middleOf(target), button, button);
    send(QEvent::MouseButtonRelease, middleOf(target), button, Qt::NoButton);
}

void GalleryHand::key(Qt::Key key)
{
    sendKey(key, {});
}

void GalleryHand::type(const QString &text)
{
    for (const QChar character : text)
        sendKey(Qt::Key_unknown, character);
}

void GalleryHand::sendKey(Qt::Key key, const QString &text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&m_window, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&m_window, &release);
}

void GalleryHand::tabTo(const QQuickItem *target)
{
    const auto isThere = [&] {
        const QQuickItem *focused = m_window.activeFocusItem();
        return focused == target || (focused && target->isAncestorOf(focused));
    };
    constexpr int enough = 40;
    for (int step = 0; target && step < enough; ++step) {
        key(Qt::Key_Tab);
        if (isThere())
            return;
    }
}

void GalleryHand::await(const std::function<bool()> &isReached)
{
    const QDeadlineTimer deadline(3s);
    while (!isReached() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

void GalleryHand::send(QEvent::Type type, const QPointF &place, Qt::MouseButton button,
                       Qt::MouseButtons buttons)
{
    QMouseEvent event(type, place, place, m_window.mapToGlobal(place), button, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&m_window, &event);
}

} // namespace ostrel
