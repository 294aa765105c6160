#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>

class QSessionManager;
class QWindow;

namespace ostrel {

/// Keeps the program running without windows, and reopens the main window.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    explicit AppDelegate(QObject *parent = nullptr);

    /// The window that reopen() shows. Not owned.
    void setMainWindow(QWindow *window);

    /// Shows the main window and brings it to the front. @p activationToken is the desktop's token
    /// for the start or the click that requests it; may be empty.
    void reopen(const QByteArray &activationToken = {});

    /// Call this each time the window's content has appeared.
    void noteAppearance();

private:
    void activate();
    /// Allows the session manager to end the program.
    static void leaveSession(QSessionManager &manager);

    QPointer<QWindow> m_mainWindow;
    QByteArray m_activationToken;
    bool m_isAppearing = false; ///< The window is shown, but its content hasn't appeared yet.
};

} // namespace ostrel
