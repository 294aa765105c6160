#pragma once

#include "StatusBarMenu.h"

#include <QIcon>
#include <QObject>

#include <memory>

class QSystemTrayIcon;

namespace ostrel {

class MonitorStore;
class StatusBarHost;
struct NotificationRequest;

/// Ostrel in the desktop's status bar: a bird that is red while anything is down, and a menu.
///
/// Shown whether or not there is a status bar at the moment: it stands in one that comes later.
/// Needs a QApplication. Main thread.
class StatusBarItem : public QObject
{
    Q_OBJECT

public:
    /// Both outlive this object.
    StatusBarItem(const MonitorStore &store, StatusBarHost &host, QObject *parent = nullptr);
    ~StatusBarItem() override;

    void show();
    /// Shows a notification beside the item, for desktops without a service for it. Dropped where
    /// there is no status bar.
    void present(const NotificationRequest &request);

    [[nodiscard]] StatusBarMenu &menu() { return m_menu; }
    /// The bird as it is at the moment.
    [[nodiscard]] const QIcon &icon() const { return m_icon; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void helpRequested();
    void openRequested();
    void quitRequested();

private:
    void join(); ///< Joins the status bar that there is at the moment.
    void updateIcon();
    void drawIcon();

    const MonitorStore &m_store;
    const StatusBarHost &m_host;
    StatusBarMenu m_menu;
    bool m_isAnythingDown;
    QIcon m_icon;
    std::unique_ptr<QSystemTrayIcon> m_trayIcon; ///< Once shown.
};

} // namespace ostrel
