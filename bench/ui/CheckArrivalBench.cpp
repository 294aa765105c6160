// How long the main thread is busy with one new check, beyond the store's save: 200 monitors with
// full histories, the whole window open on one of them.

#include "AppActions.h"
#include "DashboardOverview.h"
#include "DesktopActions.h"
#include "DesktopFakes.h"
#include "FullFolder.h"
#include "MonitorDetailModel.h"
#include "MonitorListModel.h"
#include "MonitorSelection.h"
#include "ScriptedEngine.h"
#include "Settings.h"
#include "SheetOpener.h"
#include "ThemeFonts.h"
#include "WaitFor.h"

#include <QApplication>
#include <QEventLoop>
#include <QQmlApplicationEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

Q_IMPORT_QML_PLUGIN(OstrelPlugin)
Q_IMPORT_QML_PLUGIN(Ostrel_ThemePlugin)

namespace ostrel::bench {

namespace {

constexpr int monitorCount = 200;
constexpr int rounds = 60;
/// A frame that follows from another comes sooner than this.
constexpr std::chrono::milliseconds quietTime{50};

/// What this thread has computed so far, in milliseconds.
double threadTime()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The window's models over @p store, wired as in the program.
struct Models
{
    explicit Models(MonitorStore &store)
        : scripted(store)
        , monitors(store)
        , overview(store)
        , actions(store, scripted.engine)
        , detailModel(store, fullFolderNow)
        , form(store, scripted.engine)
        , opener(store, form)
        , settings(loginItem)
        , desktop(workspace, store.storageDir())
    {
    }

    [[nodiscard]] QVariantMap properties()
    {
        return {
            {QStringLiteral("monitors"), QVariant::fromValue(&monitors)},
            {QStringLiteral("overview"), QVariant::fromValue(&overview)},
            {QStringLiteral("actions"), QVariant::fromValue(&actions)},
            {QStringLiteral("detailModel"), QVariant::fromValue(&detailModel)},
            {QStringLiteral("opener"), QVariant::fromValue(&opener)},
            {QStringLiteral("settings"), QVariant::fromValue(&settings)},
            {QStringLiteral("desktop"), QVariant::fromValue(&desktop)},
        };
    }

    test::ScriptedEngine scripted;
    test::RecordingLoginItem loginItem;
    test::RecordingWorkspace workspace;
    MonitorListModel monitors;
    DashboardOverview overview;
    AppActions actions;
    MonitorDetailModel detailModel;
    MonitorForm form;
    SheetOpener opener;
    Settings settings;
    DesktopActions desktop;
};

QQuickItem *findItem(QQuickItem *parent, const QString &name)
{
    for (QQuickItem *child : parent->childItems()) {
        if (child->objectName() == name)
            return child;
        if (QQuickItem *found = findItem(child, name))
            return found;
    }
    return nullptr;
}

/// Runs the event loop until what has changed is drawn, and what follows from that. Sleeps between
/// events: turning while it waits would count as the thread's work.
void settle(QQuickWindow &window)
{
    QEventLoop loop;
    QTimer quiet;
    quiet.setSingleShot(true);
    quiet.setInterval(quietTime);
    QObject::connect(&quiet, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(&window, &QQuickWindow::frameSwapped, &quiet, qOverload<>(&QTimer::start));
    window.update();
    loop.exec();
}

class ArrivalBench
{
public:
    explicit ArrivalBench(const QString &folder)
        : m_store(folder, MonitorStore::Access::readWrite, fullFolderNow)
    {
        // Connected first, so called first: when the save has ended.
        QObject::connect(&m_store, &MonitorStore::checksChanged,
                         [this] { m_saved = threadTime(); });
    }

    [[nodiscard]] bool show()
    {
        m_models.emplace(m_store);
        m_views.addImportPath(QStringLiteral("qrc:/qt/qml"));
        m_views.setInitialProperties(m_models->properties());
        m_views.load(QUrl(QStringLiteral("qrc:/qt/qml/Ostrel/MainWindow.qml")));
        m_window = qobject_cast<QQuickWindow *>(m_views.rootObjects().value(0));
        if (!m_window)
            return false;
        // The ring of a monitor that is down swells for ever: that is no check's work.
        m_window->setProperty("reducedMotion", true);
        m_window->show();
        if (!test::waitFor([&] { return m_window->isExposed(); }))
            return false;
        settle(*m_window);
        return true;
    }

    /// Opens the page of the monitor in row @p row.
    void open(int row)
    {
        QQuickItem *sidebar = findItem(m_window->contentItem(), QStringLiteral("sidebar"));
        auto *selection = sidebar->property("selection").value<MonitorSelection *>();
        selection->selectRow(row);
        settle(*m_window);
    }

    /// Prints the times of checks of the monitor in row @p row.
    void print(const char *what, qsizetype row)
    {
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round) {
            Check check = m_source.next(m_store.monitors().at(row).id);
            check.timestamp = fullFolderNow() - std::chrono::seconds(rounds - round);
            m_store.addCheck(check);
            settle(*m_window);
            times.push_back(threadTime() - m_saved);
        }
        std::ranges::sort(times);
        std::printf("%-36s %10.2f %10.2f  ms\n", what, times[times.size() / 2], times.back());
    }

private:
    MonitorStore m_store;
    CheckSource m_source;
    std::optional<Models> m_models;
    QQmlApplicationEngine m_views;
    QQuickWindow *m_window = nullptr;
    double m_saved = 0;
};

int benchArrival()
{
    const QTemporaryDir folder;
    writeMonitors(folder.path(),
                  monitorsOf(fillFolder(folder.path(), monitorCount), QStringLiteral("shop")));
    ArrivalBench bench(folder.path());
    if (!bench.show()) {
        std::puts("no window to measure");
        return 1;
    }
    std::printf("%-36s %10s %10s\n", "main thread, beyond the save", "median", "most");
    bench.print("dashboard open", 0);
    bench.open(0);
    bench.print("its page open (under 8)", 0);
    bench.print("another's page open", 1);
    bench.print("another's page open, row unseen", monitorCount - 1);
    return 0;
}

} // namespace

} // namespace ostrel::bench

int main(int argc, char **argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QApplication application(argc, argv);
    ostrel::ThemeFonts::install();
    return ostrel::bench::benchArrival();
}
