#include "AppDelegate.h"

#include <QGuiApplication>
#include <QWindow>

namespace ostrel {

AppDelegate::AppDelegate(QObject *parent)
    : QObject(parent)
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

void AppDelegate::setMainWindow(QWindow *window)
{
    m_mainWindow = window;
}

void AppDelegate::reopen(const QByteArray &activationToken)
{
    if (!m_mainWindow)
        return;
    // Where the toolkit looks for it when it asks the compositor to raise a window.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken);
    if (m_mainWindow->windowStates() & Qt::WindowMinimized)
        m_mainWindow->showNormal();
    m_mainWindow->show();
    m_mainWindow->raise();
    m_mainWindow->requestActivate();
}

} // namespace ostrel
