#pragma once

#include <QEvent>
#include <QPointF>
#include <QString>

#include <functional>

class QQuickItem;
class QQuickWindow;

namespace ostrel {

/// A pointer and a keyboard in a window of the gallery. An item that isn't there is left alone.
class GalleryHand
{
public:
    /// @p window outlives the hand.
    explicit GalleryHand(QQuickWindow &window);

    /// The first item of this object name, also in what lies over the window.
    [[nodiscard]] QQuickItem *item(const char *objectName) const;
    /// The item at @p index of the list called @p objectName.
    [[nodiscard]] QQuickItem *itemOf(const char *objectName, int index) const;

    void point(const QQuickItem *target);
    /// And holds.
    void press(const QQuickItem *target);
    void click(const QQuickItem *target, Qt::MouseButton button = Qt::LeftButton);
    void key(Qt::Key key);
    void type(const QString &text);
    /// Walks with the Tab key until @p target, or what it holds, has the keyboard.
    void tabTo(const QQuickItem *target);
    /// Lets events happen until @p isReached says so, for three seconds at most.
    void await(const std::function<bool()> &isReached);

private:
    void sendKey(Qt::Key key, const QString &text);
    void send(QEvent::Type type, const QPointF &place, Qt::MouseButton button,
              Qt::MouseButtons buttons);

    QQuickWindow &m_window;
};

} // namespace ostrel
