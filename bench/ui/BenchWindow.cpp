#include "BenchWindow.h"

#include "FullFolder.h"
#include "MonitorSelection.h"
#include "ThemeFonts.h"
#include "WaitFor.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlExtensionPlugin>
#include <QTimer>

#include <ctime>

using namespace Qt::StringLiterals;

Q_IMPORT_QML_PLUGIN(OstrelPlugin)
Q_IMPORT_QML_PLUGIN(Ostrel_ThemePlugin)

namespace ostrel::bench {

namespace {

/// A frame caused by another one follows within this time.
constexpr std::chrono::milliseconds quietTime{50};

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

} // namespace

double threadTime()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

BenchWindow::BenchWindow(MonitorStore &store)
    : m_scripted(store)
    , m_models(store, m_scripted.engine, m_scripted.networkPresence, m_loginItem, m_workspace,
               fullFolderNow)
{
}

bool BenchWindow::show()
{
    m_window = m_views.load(m_models);
    if (!m_window)
        return false;
    // The ring of a monitor that is down swells forever: that isn't part of the measured work.
    m_window->setProperty("reducedMotion", true);
    m_window->show();
    if (!test::waitFor([&] { return m_window->isExposed(); }))
        return false;
    settle();
    return true;
}

void BenchWindow::open(int row)
{
    item(u"sidebar"_s).property("selection").value<MonitorSelection *>()->selectRow(row);
    settle();
}

QQuickItem &BenchWindow::item(const QString &name) const
{
    return *findItem(m_window->contentItem(), name);
}

void BenchWindow::settle()
{
    QEventLoop loop;
    QTimer quiet;
    quiet.setSingleShot(true);
    quiet.setInterval(quietTime);
    QObject::connect(&quiet, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(m_window, &QQuickWindow::frameSwapped, &quiet, qOverload<>(&QTimer::start));
    m_window->update();
    loop.exec();
}

void BenchWindow::drawFrame()
{
    QEventLoop loop;
    QObject::connect(m_window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    m_window->update();
    loop.exec();
}

int runInWindow(int argc, char **argv, int (*bench)())
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    ThemeFonts::install();
    return bench();
}

} // namespace ostrel::bench
