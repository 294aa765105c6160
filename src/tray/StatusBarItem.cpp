#include "StatusBarItem.h"

#include "MonitorStore.h"
#include "NotificationCenter.h"
#include "StatusBarHost.h"
#include "StatusBarSymbol.h"
#include "ThemeColors.h"

#include <QApplication>
#include <QEvent>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

bool isAnythingDown(const MonitorStore &store)
{
    return store.overallStatus() == MonitorStatus::down;
}

/// Both birds are one drawing, so that only the colour changes. The red one never has a name, so
/// that no host tints it, and its red is the theme's: these desktops have none of their own.
QIcon bird(bool isAnythingDown, const StatusBarHost &host)
{
    const auto symbol = u"bird.fill"_s;
    constexpr auto margin = SymbolRaster::Margin::onePixel;
    if (isAnythingDown) {
        return SymbolIcon::icon(
            {.symbol = symbol, .color = ThemeColors::statusDown(), .margin = margin});
    }
    const StatusBarSymbol plain = {
        .symbol = symbol, .themeName = u"ostrel-symbolic"_s, .margin = margin};
    return plain.icon(QApplication::palette().color(QPalette::WindowText), host);
}

QSystemTrayIcon::MessageIcon messageIcon(InterruptionLevel level)
{
    return level == InterruptionLevel::timeSensitive ? QSystemTrayIcon::Critical
                                                     : QSystemTrayIcon::Information;
}

} // namespace

StatusBarItem::StatusBarItem(const MonitorStore &store, StatusBarHost &host,
                             std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_host(host)
    , m_menu(store, host)
    , m_isAnythingDown(isAnythingDown(store))
{
    connect(&store, &MonitorStore::monitorsChanged, this, &StatusBarItem::updateIcon);
    connect(&store, &MonitorStore::checksChanged, this, &StatusBarItem::updateIcon);
    connect(&m_menu, &StatusBarMenu::helpRequested, this, &StatusBarItem::helpRequested);
    connect(&m_menu, &StatusBarMenu::openRequested, this, &StatusBarItem::openRequested);
    connect(&m_menu, &StatusBarMenu::quitRequested, this, &StatusBarItem::quitRequested);
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        if (!m_host.isSilent())
            join();
    });
    connect(&host, &StatusBarHost::appeared, this, [this] {
        if (m_isAwaiting)
            join();
    });
    connect(&host, &StatusBarHost::disappeared, this, [this] {
        if (m_isAwaiting)
            m_patience.start();
    });
    m_menu.menu().installEventFilter(this);
}

StatusBarItem::~StatusBarItem() = default;

void StatusBarItem::show()
{
    if (m_isAwaiting || m_trayIcon)
        return;
    // On X11 the toolkit decides when it creates its first icon, and for good, whether icons talk
    // to a host or to the older kind of bar, which embeds windows. So this is postponed while a
    // host may still appear: either kind accepts an icon at any later time, but not the other
    // kind's. If a host is there but doesn't answer, the wait is unlimited.
    m_isAwaiting = m_host.isAwaited();
    if (m_isAwaiting)
        m_patience.start();
    else
        join();
}

void StatusBarItem::present(const NotificationRequest &request)
{
    if (!m_trayIcon)
        return;
    m_presentedMonitor = request.monitorId;
    m_trayIcon->showMessage(request.title, request.body, messageIcon(request.level));
}

QIcon StatusBarItem::icon() const
{
    return bird(m_isAnythingDown, m_host);
}

bool StatusBarItem::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange) {
        drawIcon();
        m_menu.rewrite();
    }
    return QObject::eventFilter(watched, event);
}

void StatusBarItem::join()
{
    m_patience.stop();
    m_isAwaiting = false;
    m_trayIcon = std::make_unique<QSystemTrayIcon>(icon());
    m_trayIcon->setToolTip(u"Ostrel"_s);
    m_trayIcon->setContextMenu(&m_menu.menu());
    // From here on it is known who draws the menu.
    m_menu.rewrite();
    connect(m_trayIcon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    Q_EMIT openRequested();
            });
    connect(m_trayIcon.get(), &QSystemTrayIcon::messageClicked, this,
            [this] { Q_EMIT notificationClicked(m_presentedMonitor); });
    m_trayIcon->show();
}

void StatusBarItem::updateIcon()
{
    if (m_isAnythingDown == isAnythingDown(m_store))
        return;
    m_isAnythingDown = !m_isAnythingDown;
    drawIcon();
}

void StatusBarItem::drawIcon() const
{
    if (m_trayIcon)
        m_trayIcon->setIcon(icon());
}

} // namespace ostrel
