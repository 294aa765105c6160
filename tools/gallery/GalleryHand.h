#pragma once

#include <QEvent>
#include <QPointF>
#include <QString>

#include <functional>

class QQuickItem;
class QQuickWindow;

namespace ostrel {

/// A pointer and a keyboard in a window of the gallery. Does nothing to an item that isn't there.
class GalleryHand
{
public:
    /// @p window outlives the hand.
    explicit GalleryHand(QQuickWindow &window);

    /// The first item with this object name, also among items that lie over the window.
    [[nodiscard]] QQuickItem *item(const char *objectName) const;
    /// The item at @p index of the list called @p objectName.
    [[nodiscard]] QQuickItem *itemOf(const char *objectName, int index) const;

    void point(const QQuickItem *target);
    /// Presses without releasing.
    void press(const QQuickItem *target);
    void click(const QQuickItem *target, Qt::MouseButton button = Qt::LeftButton);
    void key(Qt::Key key);
    void type(const QString &text);
    /// Presses the Tab key until @p target, or an item in it, has the keyboard focus.
    void tabTo(const QQuickItem *target);
    /// Processes events until @p isReached returns true, for at most three seconds.
    void await(const std::function<bool()> &isReached);

private:
    void sendKey(Qt::Key key, const QString &text);
    void send(QEvent::Type type, const QPointF &place, Qt::MouseButton button,
              Qt::MouseButtons buttons);

    QQuickWindow &m_window;
};

} // namespace ostrel
