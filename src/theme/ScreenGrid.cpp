#include "ScreenGrid.h"

#include <QGuiApplication>
#include <QScreen>

namespace ostrel {

ScreenGrid::ScreenGrid(QQuickItem &item)
    : QObject(&item)
{
    connect(&item, &QQuickItem::windowChanged, this, &ScreenGrid::takeWindow);
    takeWindow(item.window());
}

ScreenGrid *ScreenGrid::qmlAttachedProperties(QObject *item)
{
    auto *visible = qobject_cast<QQuickItem *>(item);
    return visible ? new ScreenGrid(*visible) : nullptr;
}

void ScreenGrid::takeWindow(QQuickWindow *window)
{
    if (m_window)
        m_window->disconnect(this);
    m_window = window;
    if (m_window)
        connect(m_window, &QWindow::screenChanged, this, &ScreenGrid::takeScreen);
    // Most items get a window on the first screen later.
    takeScreen(m_window ? m_window->screen() : QGuiApplication::primaryScreen());
}

void ScreenGrid::takeScreen(QScreen *screen)
{
    if (m_screen)
        m_screen->disconnect(this);
    m_screen = screen;
    // The only signal of a screen whose scale changes.
    if (m_screen)
        connect(m_screen, &QScreen::physicalDotsPerInchChanged, this, &ScreenGrid::readScale);
    readScale();
}

void ScreenGrid::readScale()
{
    const bool isCoarse = !m_screen || m_screen->devicePixelRatio() <= 1.0;
    if (m_isCoarse == isCoarse)
        return;
    m_isCoarse = isCoarse;
    Q_EMIT isCoarseChanged();
}

} // namespace ostrel
