#include "WindowExposure.h"

#include <QEvent>

namespace ostrel {

void WindowExposure::setWindow(QQuickWindow *window)
{
    if (m_window == window)
        return;
    if (m_window) {
        m_window->removeEventFilter(this);
        m_window->disconnect(this);
    }
    m_window = window;
    if (m_window) {
        m_window->installEventFilter(this);
        connect(m_window, &QWindow::visibilityChanged, this, &WindowExposure::readExposure);
    }
    Q_EMIT windowChanged();
    readExposure();
}

bool WindowExposure::eventFilter(QObject *watched, QEvent *event)
{
    // The window updates its own exposure only after its event filters have run.
    if (event->type() == QEvent::Expose)
        QMetaObject::invokeMethod(this, &WindowExposure::readExposure, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

void WindowExposure::readExposure()
{
    // A window that is closed is destroyed: its exposure ends afterwards, and without an event.
    const bool isExposed = m_window && m_window->isVisible() && m_window->isExposed() &&
                           m_window->visibility() != QWindow::Minimized;
    if (m_isExposed == isExposed)
        return;
    m_isExposed = isExposed;
    Q_EMIT isExposedChanged();
}

} // namespace ostrel
