#include "AppDelegate.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QWindow>

#include <utility>

namespace ostrel {

namespace {

/// Where the toolkit looks for the token when it asks the compositor to raise a window, and where
/// it leaves the one of a click on the status bar's item.
constexpr auto tokenVariable = "XDG_ACTIVATION_TOKEN";

} // namespace

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
    m_activationToken = activationToken.isEmpty() ? qgetenv(tokenVariable) : activationToken;
    // A compositor ignores a token for a window that it has nothing to show of yet.
    m_isAppearing = m_isAppearing || !m_mainWindow->isVisible();
    m_mainWindow->setWindowStates(m_mainWindow->windowStates() & ~Qt::WindowMinimized);
    m_mainWindow->setVisible(true); // show() would end its maximised state, too.
    m_mainWindow->raise();
    if (!m_isAppearing)
        activate();
}

void AppDelegate::noteAppearance()
{
    if (std::exchange(m_isAppearing, false))
        activate();
}

void AppDelegate::activate()
{
    if (!m_activationToken.isEmpty())
        qputenv(tokenVariable, std::exchange(m_activationToken, {}));
    m_mainWindow->requestActivate();
}

} // namespace ostrel
