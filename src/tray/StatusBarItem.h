#pragma once

#include "StatusBarMenu.h"

#include <QIcon>
#include <QObject>
#include <QTimer>
#include <QUuid>

#include <chrono>
#include <memory>

class QSystemTrayIcon;

namespace ostrel {

class MonitorStore;
class StatusBarHost;
struct NotificationRequest;

/// Ostrel in the desktop's status bar: a bird that is red while any monitor is down, and a menu.
///
/// Needs a QApplication. Main thread.
class StatusBarItem : public QObject
{
    Q_OBJECT

public:
    /// How long to wait for a host that starts after this program, as at login.
    static constexpr std::chrono::milliseconds defaultPatience{10'000};

    /// Both must outlive this object.
    StatusBarItem(const MonitorStore &store, StatusBarHost &host,
                  std::chrono::milliseconds patience = defaultPatience, QObject *parent = nullptr);
    ~StatusBarItem() override;

    /// Joins the status bar once its kind is known. Does nothing when called again.
    void show();
    [[nodiscard]] bool hasJoined() const { return m_trayIcon != nullptr; }
    /// Shows a notification beside the item, for desktops without a notification service. Dropped
    /// if there is no status bar.
    void present(const NotificationRequest &request);

    [[nodiscard]] StatusBarMenu &menu() { return m_menu; }
    /// The current bird.
    [[nodiscard]] QIcon icon() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void helpRequested();
    void openRequested();
    void quitRequested();
    /// The user has clicked a notification that was shown beside the item.
    void notificationClicked(const QUuid &monitorId);

private:
    void join();
    void updateIcon();
    void drawIcon() const;

    const MonitorStore &m_store;
    const StatusBarHost &m_host;
    StatusBarMenu m_menu;
    bool m_isAnythingDown;
    QTimer m_patience;
    bool m_isAwaiting = false;                   ///< Must be shown, but hasn't joined yet.
    QUuid m_presentedMonitor;                    ///< Of the notification that was shown last.
    std::unique_ptr<QSystemTrayIcon> m_trayIcon; ///< Null until it has joined.
};

} // namespace ostrel
