#pragma once

#include "AppActions.h"
#include "DashboardModel.h"
#include "DesktopActions.h"
#include "MonitorCommands.h"
#include "MonitorDetailModel.h"
#include "MonitorForm.h"
#include "MonitorListModel.h"
#include "Settings.h"
#include "SheetOpener.h"
#include "SidebarNotice.h"

#include <QObject>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace ostrel {

class LoginItem;
class MonitorStore;
class MonitoringEngine;
class NetworkPresence;
class Workspace;

/// The main window's models and commands. Lives on the main thread, and must outlive the window.
class WindowModels : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(ostrel::MonitorListModel *monitors READ monitors CONSTANT)
    Q_PROPERTY(ostrel::DashboardModel *dashboard READ dashboard CONSTANT)
    Q_PROPERTY(ostrel::MonitorDetailModel *detail READ detail CONSTANT)
    Q_PROPERTY(ostrel::AppActions *actions READ actions CONSTANT)
    Q_PROPERTY(ostrel::SheetOpener *opener READ opener CONSTANT)
    Q_PROPERTY(ostrel::Settings *settings READ settings CONSTANT)
    Q_PROPERTY(ostrel::DesktopActions *desktop READ desktop CONSTANT)
    Q_PROPERTY(ostrel::SidebarNotice *notice READ notice CONSTANT)

public:
    /// All arguments must outlive this object.
    WindowModels(MonitorStore &store, MonitoringEngine &engine, const NetworkPresence &presence,
                 LoginItem &loginItem, Workspace &workspace, const WallClock &now = systemNow);

    [[nodiscard]] MonitorCommands &commands() { return m_commands; }
    [[nodiscard]] MonitorListModel *monitors() { return &m_monitors; }
    [[nodiscard]] DashboardModel *dashboard() { return &m_dashboard; }
    [[nodiscard]] MonitorDetailModel *detail() { return &m_detail; }
    [[nodiscard]] AppActions *actions() { return &m_actions; }
    [[nodiscard]] MonitorForm *form() { return &m_form; }
    [[nodiscard]] SheetOpener *opener() { return &m_opener; }
    [[nodiscard]] Settings *settings() { return &m_settings; }
    [[nodiscard]] DesktopActions *desktop() { return &m_desktop; }
    [[nodiscard]] SidebarNotice *notice() { return &m_notice; }

Q_SIGNALS:
    /// Emitted by the application, to the window: the page of the monitor with this QUuid is
    /// wanted.
    void pageRequested(const QVariant &monitorId);

private:
    MonitorCommands m_commands;
    MonitorListModel m_monitors;
    DashboardModel m_dashboard;
    MonitorDetailModel m_detail;
    AppActions m_actions;
    MonitorForm m_form;
    SheetOpener m_opener;
    Settings m_settings;
    DesktopActions m_desktop;
    SidebarNotice m_notice;
};

} // namespace ostrel
