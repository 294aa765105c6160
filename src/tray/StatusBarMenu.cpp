#include "StatusBarMenu.h"

#include "MonitorStore.h"
#include "StatusBarHost.h"
#include "StatusBarSymbol.h"

#include <QApplication>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

constexpr qsizetype mostCharacters = 60;

/// @p name with at most 60 characters, as a reader counts them: what is longer ends with "…".
QString shortened(const QString &name)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, name);
    qsizetype lastPlace = 0;
    for (qsizetype count = 0; count < mostCharacters; ++count) {
        if (finder.toNextBoundary() == -1)
            return name;
        if (count == mostCharacters - 2)
            lastPlace = finder.position();
    }
    return finder.position() == name.size() ? name : name.first(lastPlace) + u'…';
}

} // namespace

StatusBarMenu::StatusBarMenu(const MonitorStore &store, const StatusBarHost &host, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_host(host)
{
    addCommands();
    syncRows();
    rewrite();
    connect(&store, &MonitorStore::monitorsChanged, this, &StatusBarMenu::syncRows);
    connect(&store, &MonitorStore::checksChanged, this, &StatusBarMenu::updateRow);
}

StatusBarMenu::~StatusBarMenu()
{
    // If a menu is destroyed together with its entries, their representations on the bus are
    // leaked.
    m_menu.clear();
}

bool StatusBarMenu::isDrawnByHost()
{
    return m_menu.platformMenu() != nullptr;
}

void StatusBarMenu::addCommands()
{
    m_noMonitors.setEnabled(false);
    m_open.setShortcut(Qt::CTRL | Qt::Key_O);
    m_quit.setShortcut(Qt::CTRL | Qt::Key_Q);
    // Without a role, the desktop can't move or rename a command.
    for (QAction *action : {&m_noMonitors, &m_help, &m_open, &m_quit}) {
        action->setMenuRole(QAction::NoRole);
        action->setShortcutVisibleInContextMenu(true);
    }
    m_menu.addAction(&m_noMonitors);
    m_menu.addSeparator();
    m_menu.addAction(&m_help);
    m_menu.addAction(&m_open);
    m_menu.addSeparator();
    m_menu.addAction(&m_quit);
    connect(&m_help, &QAction::triggered, this, &StatusBarMenu::helpRequested);
    connect(&m_open, &QAction::triggered, this, &StatusBarMenu::openRequested);
    connect(&m_quit, &QAction::triggered, this, &StatusBarMenu::quitRequested);
}

void StatusBarMenu::rewrite()
{
    m_noMonitors.setText(menuText(tr("No monitors")));
    m_help.setText(menuText(tr("Help & Support")));
    m_open.setText(menuText(tr("Open Ostrel")));
    m_quit.setText(menuText(tr("Quit")));
    for (const Row &row : m_rows) {
        row.action->setText(rowText(row.entry));
        row.action->setIcon(menuIcon(row.entry.symbol));
    }
}

void StatusBarMenu::syncRows()
{
    const auto &monitors = m_store.monitors();
    const auto isStored = [&](const QUuid &id) {
        return std::ranges::any_of(monitors, [&](const Monitor &each) { return each.id == id; });
    };
    for (std::size_t i = m_rows.size(); i-- > 0;) {
        if (!isStored(m_rows[i].monitorId))
            removeRow(i);
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(monitors.size()); ++i) {
        const Monitor &monitor = monitors[static_cast<qsizetype>(i)];
        if (i == m_rows.size() || m_rows[i].monitorId != monitor.id)
            insertRow(i, monitor.id);
        show(m_rows[i], entryOf(monitor));
    }
    m_noMonitors.setVisible(m_rows.empty());
}

void StatusBarMenu::updateRow(const QUuid &monitorId)
{
    const auto monitor = m_store.monitor(monitorId);
    if (!monitor)
        return;
    for (Row &row : m_rows) {
        if (row.monitorId == monitorId)
            show(row, entryOf(*monitor));
    }
}

void StatusBarMenu::show(Row &row, const StatusMenuEntry &entry)
{
    const StatusMenuEntry shown = std::exchange(row.entry, entry);
    if (shown.name != entry.name || shown.trailingText != entry.trailingText)
        row.action->setText(rowText(entry));
    if (shown.symbol != entry.symbol)
        row.action->setIcon(menuIcon(entry.symbol));
}

void StatusBarMenu::insertRow(std::size_t index, const QUuid &monitorId)
{
    auto *action = new QAction(&m_menu);
    action->setMenuRole(QAction::NoRole);
    action->setIconVisibleInMenu(true);
    m_menu.insertAction(index < m_rows.size() ? m_rows[index].action : &m_noMonitors, action);
    m_rows.insert(m_rows.begin() + static_cast<std::ptrdiff_t>(index),
                  {.monitorId = monitorId, .action = action});
}

void StatusBarMenu::removeRow(std::size_t index)
{
    delete m_rows[index].action;
    m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(index));
}

StatusMenuEntry StatusBarMenu::entryOf(const Monitor &monitor) const
{
    return statusMenuEntry(monitor, m_store.status(monitor), m_store.latestCheck(monitor));
}

QString StatusBarMenu::menuText(const QString &text)
{
    return isDrawnByHost() ? m_host.menuText(text) : StatusBarHost::toolkitMenuText(text);
}

QIcon StatusBarMenu::menuIcon(const QString &symbol)
{
    const QColor textColor = QApplication::palette("QMenu").color(QPalette::WindowText);
    if (!isDrawnByHost())
        return SymbolIcon::icon({.symbol = symbol, .color = textColor});
    QString themeName = u"ostrel-%1-symbolic"_s.arg(symbol);
    themeName.replace(u'.', u'-');
    return StatusBarSymbol{.symbol = symbol, .themeName = themeName}.icon(textColor, m_host);
}

QString StatusBarMenu::rowText(const StatusMenuEntry &entry)
{
    const QString name = menuText(shortened(entry.name));
    return entry.trailingText.isEmpty() ? name : name + u'\t' + entry.trailingText;
}

} // namespace ostrel
