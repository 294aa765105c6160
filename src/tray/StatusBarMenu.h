#pragma once

#include "StatusMenuEntry.h"

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QUuid>

#include <vector>

namespace ostrel {

class MonitorStore;
class StatusBarHost;

/// The status bar's menu: each monitor's current state, then the program's commands.
///
/// The same menu object is kept, and may be open at any time: a change in the store changes the
/// entries with a new text or symbol, and no others. Main thread.
class StatusBarMenu : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object.
    StatusBarMenu(const MonitorStore &store, const StatusBarHost &host, QObject *parent = nullptr);
    ~StatusBarMenu() override;

    /// Owned by this object.
    [[nodiscard]] QMenu &menu() { return m_menu; }
    /// Whether the host draws the menu, and not the toolkit.
    [[nodiscard]] bool isDrawnByHost();

    /// Sets all texts and icons again: call it if the menu's renderer, or the colour of its text,
    /// has changed.
    void rewrite();

Q_SIGNALS:
    void helpRequested();
    void openRequested();
    void quitRequested();

private:
    struct Row
    {
        QUuid monitorId;
        QAction *action = nullptr; ///< Owned by the menu.
        StatusMenuEntry entry = {};
    };

    void addCommands();
    void syncRows();
    void updateRow(const QUuid &monitorId);
    void show(Row &row, const StatusMenuEntry &entry);
    void insertRow(std::size_t index, const QUuid &monitorId);
    void removeRow(std::size_t index);
    [[nodiscard]] StatusMenuEntry entryOf(const Monitor &monitor) const;
    [[nodiscard]] QString menuText(const QString &text);
    [[nodiscard]] QIcon menuIcon(const QString &symbol);
    [[nodiscard]] QString rowText(const StatusMenuEntry &entry);

    const MonitorStore &m_store;
    const StatusBarHost &m_host;
    QMenu m_menu;
    QAction m_noMonitors;
    QAction m_help;
    QAction m_open;
    QAction m_quit;
    std::vector<Row> m_rows;
};

} // namespace ostrel
