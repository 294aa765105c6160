#include "AppDelegate.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QWindow>

namespace ostrel {

AppDelegate::AppDelegate(QObject *parent)
    : QObject(parent)
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &AppDelegate::leaveSession,
            Qt::DirectConnection);
    connect(qGuiApp, &QGuiApplication::saveStateRequest, this, &AppDelegate::leaveSession,
            Qt::DirectConnection);
}

void AppDelegate::setMainWindow(QWindow *window)
{
    m_mainWindow = window;
}

void AppDelegate::leaveSession(QSessionManager &manager)
{
    // Everything is on the disk already, so there is nothing to save, to ask or to delay. Only the
    // login item decides whether the next session starts the program.
    manager.setRestartHint(QSessionManager::RestartNever);
}

void AppDelegate::reopen(const QByteArray &activationToken)
{
    if (!m_mainWindow)
        return;
    // The toolkit reads it from there when it asks the compositor to raise a window.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken);
    m_mainWindow->setWindowStates(m_mainWindow->windowStates() & ~Qt::WindowMinimized);
    m_mainWindow->setVisible(true); // show() would end its maximised state, too.
    m_mainWindow->raise();
    m_mainWindow->requestActivate();
}

} // namespace ostrel
