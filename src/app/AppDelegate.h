#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>

class QSessionManager;
class QWindow;

namespace ostrel {

/// Keeps the program alive without windows, and opens the main window again.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    explicit AppDelegate(QObject *parent = nullptr);

    /// The window that reopen() shows. Not owned.
    void setMainWindow(QWindow *window);

    /// Shows the main window and brings it to the front. @p activationToken is what the desktop
    /// gave to the start that asks for it; may be empty.
    void reopen(const QByteArray &activationToken = {});

private:
    /// Lets the session manager end the program.
    static void leaveSession(QSessionManager &manager);

    QPointer<QWindow> m_mainWindow;
};

} // namespace ostrel
