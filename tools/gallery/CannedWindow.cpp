#include "CannedWindow.h"

#include "CannedEngine.h"
#include "CannedMonitors.h"
#include "MonitorStore.h"
#include "NetworkPresence.h"
#include "NoDesktop.h"

#include <QTemporaryDir>

#include <array>

namespace ostrel {

namespace {

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

struct WindowRecipe
{
    const char *sample;
    std::vector<CannedMonitor> (*make)();
    int selected = dashboard; ///< An index.
    bool isOffline = false;
    bool lacksMail = false;
    bool isChecking = false; ///< A check of the selected monitor is running on request.
};

/// A network whose presence the sample sets.
class CannedPresence : public NetworkPresence
{
public:
    using NetworkPresence::setPresent;
};

constexpr std::array windowRecipes = {
    WindowRecipe{"empty", [] { return std::vector<CannedMonitor>(); }},
    WindowRecipe{"all-up", cannedMonitorsUp},
    WindowRecipe{"one-down", cannedMonitors},
    WindowRecipe{"pending", oneAdded},
    WindowRecipe{"one-paused", onePaused},
    WindowRecipe{"all-paused", allPaused},
    WindowRecipe{"many", manyCannedMonitors},
    WindowRecipe{"long", longCannedMonitors},
    WindowRecipe{.sample = "offline", .make = cannedMonitorsUp, .isOffline = true},
    WindowRecipe{.sample = "no-mail", .make = cannedMonitorsUp, .lacksMail = true},
    WindowRecipe{"detail-down", cannedMonitors, 1},
    WindowRecipe{"detail-slow", cannedMonitors, 2},
    WindowRecipe{"detail-up", cannedMonitors, 3},
    WindowRecipe{
        .sample = "detail-checking", .make = cannedMonitors, .selected = 3, .isChecking = true},
    WindowRecipe{"detail-paused", cannedMonitors, 4},
    WindowRecipe{"detail-pending", cannedMonitors, 5},
    WindowRecipe{"detail-long", longCannedMonitors, 0},
};

} // namespace

struct CannedWindow::Parts
{
    PreferencesFolder preferences;
    QTemporaryDir folder;
    NoWorkspace workspace;
    NoLoginItem loginItem;
    MonitorStore store{folder.path(), MonitorStore::Access::readOnly, cannedNow};
    CannedEngine canned{store};
    CannedPresence presence;
    WindowModels models{store, canned.engine(), presence, loginItem, workspace, cannedNow};
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
    for (const WindowRecipe &recipe : windowRecipes)
        samples += QString::fromLatin1(recipe.sample);
    return samples;
}

void CannedWindow::setSample(const QString &sample)
{
    m_sample = sample;
    for (const WindowRecipe &recipe : windowRecipes) {
        if (sample != QLatin1String(recipe.sample))
            continue;
        for (const CannedMonitor &canned : recipe.make())
            addTo(m_parts->store, canned);
        m_parts->presence.setPresent(!recipe.isOffline);
        m_parts->models.notice()->takeHelpAnswer(!recipe.lacksMail);
        if (recipe.selected != dashboard)
            m_selectedMonitorId = m_parts->models.monitors()->monitorIdAt(recipe.selected);
        m_parts->models.monitors()->setChecking(m_selectedMonitorId, recipe.isChecking);
        m_parts->models.detail()->setChecking(m_selectedMonitorId, recipe.isChecking);
    }
}

WindowModels *CannedWindow::models()
{
    return &m_parts->models;
}

} // namespace ostrel
