#include "CannedWindow.h"

#include "CannedEngine.h"
#include "CannedMonitors.h"
#include "MonitorStore.h"
#include "Workspace.h"

#include <QTemporaryDir>

#include <array>

namespace ostrel {

namespace {

class NoWorkspace : public Workspace
{
public:
    bool open(const QUrl & /*url*/) override { return false; }
    bool openFolder(const QString & /*path*/) override { return false; }
    bool openNotificationSettings() override { return false; }
};

std::vector<CannedMonitor> oneAdded()
{
    std::vector<CannedMonitor> monitors = cannedMonitorsUp();
    monitors.back().checks.clear();
    return monitors;
}

std::vector<CannedMonitor> onePaused()
{
    std::vector<CannedMonitor> monitors = cannedMonitorsUp();
    monitors.front().monitor.isEnabled = false;
    return monitors;
}

std::vector<CannedMonitor> allPaused()
{
    std::vector<CannedMonitor> monitors = cannedMonitors();
    for (CannedMonitor &canned : monitors)
        canned.monitor.isEnabled = false;
    return monitors;
}

constexpr int dashboard = -1;

struct Recipe
{
    const char *sample;
    std::vector<CannedMonitor> (*make)();
    int selected = dashboard; ///< An index.
};

constexpr std::array recipes = {
    Recipe{"empty", [] { return std::vector<CannedMonitor>(); }},
    Recipe{"all-up", cannedMonitorsUp},
    Recipe{"one-down", cannedMonitors},
    Recipe{"pending", oneAdded},
    Recipe{"one-paused", onePaused},
    Recipe{"all-paused", allPaused},
    Recipe{"many", manyCannedMonitors},
    Recipe{"long", longCannedMonitors},
    Recipe{"detail-down", cannedMonitors, 1},
    Recipe{"detail-slow", cannedMonitors, 2},
    Recipe{"detail-up", cannedMonitors, 3},
    Recipe{"detail-paused", cannedMonitors, 4},
    Recipe{"detail-pending", cannedMonitors, 5},
    Recipe{"detail-long", longCannedMonitors, 0},
};

} // namespace

struct CannedWindow::Parts
{
    QTemporaryDir folder;
    NoWorkspace workspace;
    MonitorStore store{folder.path(), MonitorStore::Access::readOnly, cannedNow};
    CannedEngine canned{store};
    MonitorListModel monitors{store};
    DashboardOverview overview{store};
    AppActions actions{store, canned.engine()};
    MonitorDetailModel detailModel{store, cannedNow};
    MonitorForm form{store, canned.engine(), cannedNow};
    SheetOpener opener{store, form};
    DesktopActions desktop{workspace, folder.path()};
};

CannedWindow::CannedWindow(QObject *parent)
    : QObject(parent)
    , m_parts(std::make_unique<Parts>())
{
}

CannedWindow::~CannedWindow() = default;

QStringList CannedWindow::samples()
{
    QStringList samples;
    for (const Recipe &recipe : recipes)
        samples += QString::fromLatin1(recipe.sample);
    return samples;
}

void CannedWindow::setSample(const QString &sample)
{
    m_sample = sample;
    for (const Recipe &recipe : recipes) {
        if (sample != QLatin1String(recipe.sample))
            continue;
        for (const CannedMonitor &canned : recipe.make())
            addTo(m_parts->store, canned);
        if (recipe.selected != dashboard)
            m_selectedMonitorId = m_parts->monitors.monitorIdAt(recipe.selected);
    }
}

MonitorListModel *CannedWindow::monitors()
{
    return &m_parts->monitors;
}

DashboardOverview *CannedWindow::overview()
{
    return &m_parts->overview;
}

AppActions *CannedWindow::actions()
{
    return &m_parts->actions;
}

MonitorDetailModel *CannedWindow::detailModel()
{
    return &m_parts->detailModel;
}

SheetOpener *CannedWindow::opener()
{
    return &m_parts->opener;
}

DesktopActions *CannedWindow::desktop()
{
    return &m_parts->desktop;
}

} // namespace ostrel
