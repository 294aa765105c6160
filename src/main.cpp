#include "ApplicationId.h"
#include "ChangeCommand.h"
#include "CheckCommand.h"
#include "CheckNowCommand.h"
#include "CommandLine.h"
#include "CurlNetwork.h"
#include "Demo.h"
#include "DemoLoginItem.h"
#include "DetachedThread.h"
#include "ExportCommand.h"
#include "HttpCheck.h"
#include "ImportCommand.h"
#include "ListCommand.h"
#include "MainWindowLoader.h"
#include "MetricsCommand.h"
#include "NotificationManager.h"
#include "OneLine.h"
#include "OstrelApp.h"
#include "Platform.h"
#include "PortCheck.h"
#include "PseudoTranslator.h"
#include "RecordsReader.h"
#include "RequestRunner.h"
#include "SingleInstance.h"
#include "Sleeper.h"
#include "StatusCommand.h"
#include "StatusWatch.h"
#include "StorageFolder.h"
#include "ThemeFonts.h"
#include "WorkThread.h"

#include <QApplication>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <future>
#include <optional>
#include <unistd.h>
#include <variant>

using namespace Qt::StringLiterals;

Q_IMPORT_QML_PLUGIN(OstrelPlugin)
Q_IMPORT_QML_PLUGIN(Ostrel_ThemePlugin)

namespace {

using namespace ostrel;
void print(const QByteArray &text, std::FILE *stream = stdout)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stream);
}

void complain(const QString &sentence)
{
    print("ostrel: " + oneLine(sentence).toLocal8Bit() + '\n', stderr);
}

/// Prints a message to stderr each time that @p store can no longer save.
void tellOfFailures(const MonitorStore &store)
{
    const auto tell = [&store] {
        if (!store.canSave())
            complain(u"can't save to "_s + store.storageDir() + u": "_s + store.saveFailure());
    };
    QObject::connect(&store, &MonitorStore::canSaveChanged, tell);
    tell();
}

/// The interface consists only of lines, pictures and text, which are drawn in a fraction of the
/// memory and time without OpenGL. A renderer that the user asks for is used instead.
void preferSoftwareRenderer()
{
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND") &&
        !qEnvironmentVariableIsSet("QSG_RHI_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

/// The application object of a program with windows, and what belongs to it.
class WindowedApplication
{
public:
    WindowedApplication(int &argc, char **argv, Language language)
        : m_application(prepared(argc), argv)
    {
        preparePlatform();
        QApplication::setDesktopFileName(applicationId());
        ThemeFonts::install();
        if (language == Language::pseudo)
            QCoreApplication::installTranslator(&m_pseudo);
    }

    /// Emitted only once an event loop runs, so that nothing is left half done.
    [[nodiscard]] const TerminationSignal &termination() const { return *m_termination; }

private:
    /// Does what must be done before there is an application object.
    static int &prepared(int &argc)
    {
        preferSoftwareRenderer();
        avoidSilentServices();
        return argc;
    }

    std::future<void> m_faces = std::async(std::launch::async, &readFontConfiguration);
    QApplication m_application;
    std::unique_ptr<TerminationSignal> m_termination = makeTerminationSignal();
    PseudoTranslator m_pseudo;
};

/// What differs between the ways to watch.
struct Circumstances
{
    bool addsMonitor = false;
    IoThreadConfiguration network = {};
    /// Made as soon as there is an application object.
    std::function<std::unique_ptr<LoginItem>()> makeLoginItem = &ostrel::makeLoginItem;
};

struct Program
{
    int argc;
    char **argv;

    int operator()(const RunInvocation &invocation)
    {
        RecordsReader records(invocation.dataDir); // On another thread, while the rest is set up.
        const WindowedApplication application(argc, argv, invocation.language);
        createPrivateFolder(invocation.dataDir);
        for (const QString &complaint : closeToOthers(invocation.dataDir))
            complain(complaint);
        SingleInstance instance(invocation.dataDir);
        const bool addsMonitor = invocation.addsMonitor;
        switch (instance.claim(usualPatience,
                               addsMonitor ? StartRequest::addMonitor : StartRequest::show)) {
        case SingleInstance::Claim::handedOver:
            return 0;
        case SingleInstance::Claim::failed:
            complainOfSilence(invocation.dataDir);
            return exitFailed;
        case SingleInstance::Claim::first:
        case SingleInstance::Claim::unusable: // It watches and notifies all the same.
            break;
        }
        return watch(records, instance, application.termination(), {.addsMonitor = addsMonitor});
    }

    int operator()(const DemoInvocation &invocation)
    {
        const WindowedApplication application(argc, argv, invocation.language);
        Demo demo;
        if (!demo.start()) {
            complain(u"can't start the demo: "_s + demo.reason());
            return exitFailed;
        }
        QGuiApplication::setApplicationDisplayName(u"Demo"_s); // Ends the windows' titles.
        IoThreadConfiguration network;
        network.trustStore.file = demo.trustBundle(network.trustStore.file);
        RecordsReader records(demo.dataDir());
        SingleInstance instance(demo.dataDir());
        static_cast<void>(instance.claim(usualPatience)); // Nobody else knows this folder.
        return watch(records, instance, application.termination(),
                     {.network = network,
                      .makeLoginItem = [] { return std::make_unique<DemoLoginItem>(); }});
    }

    int operator()(const QuitInvocation &invocation)
    {
        const QCoreApplication application(argc, argv);
        SingleInstance instance(invocation.dataDir);
        const auto claim = instance.claim(usualPatience, StartRequest::quit);
        if (claim != SingleInstance::Claim::failed)
            return 0; // It ends, or there is none.
        complainOfSilence(invocation.dataDir);
        return exitFailed;
    }

    int operator()(const CheckInvocation &invocation)
    {
        const QCoreApplication application(argc, argv);
        CurlNetwork network;
        const Check check = runCheckOnce(invocation, network);
        print(describeCheck(invocation.monitor, check, invocation.format));
        return exitCodeOf(check);
    }

    int operator()(const StatusInvocation &invocation)
    {
        if (invocation.isFollowed)
            return follow(invocation);
        return tell(readStatus(invocation), invocation.dataDir);
    }

    int operator()(const ExportInvocation &invocation)
    {
        const ExportOutcome outcome = runExport(invocation, STDOUT_FILENO);
        for (const QString &complaint : outcome.complaints)
            complain(complaint);
        return outcome.exitCode;
    }

    int operator()(const ImportInvocation &invocation)
    {
        return change(invocation, [](const ImportInvocation &wanted, RequestRunner &runner) {
            return runImport(wanted, runner);
        });
    }

    int operator()(const MetricsInvocation &invocation)
    {
        return tell(readMetrics(invocation), invocation.dataDir);
    }

    int operator()(const ListInvocation &invocation)
    {
        return tell(readList(invocation), invocation.dataDir);
    }

    int operator()(const AddInvocation &invocation)
    {
        createPrivateFolder(invocation.dataDir);
        return change(invocation, runAdd);
    }

    int operator()(const EditInvocation &invocation) { return change(invocation, runEdit); }

    int operator()(const SwitchInvocation &invocation) { return change(invocation, runSwitch); }

    int operator()(const CheckNowInvocation &invocation)
    {
        const auto check = [](const CheckNowInvocation &wanted, RequestRunner &runner) {
            CurlNetwork network;
            return runCheckNow(wanted, runner, network);
        };
        return change(invocation, check);
    }

    int operator()(const AnswerInvocation &invocation)
    {
        print(invocation.text.toLocal8Bit());
        return 0;
    }

    int operator()(const UnusableInvocation &invocation)
    {
        const QString help = invocation.command.isEmpty()
                                 ? u"ostrel --help"_s
                                 : u"ostrel %1 --help"_s.arg(invocation.command);
        complain(invocation.reason + u" Try '"_s + help + u"'."_s);
        return exitUnusable;
    }

private:
    /// Prints what was read from @p dataDir; complains if it is nullopt.
    static int tell(const std::optional<QByteArray> &text, const QString &dataDir)
    {
        if (text) {
            print(*text);
            return exitDone;
        }
        complainOfMonitors(dataDir);
        return exitFailed;
    }

    /// Runs a command that may need the program that watches.
    template<typename Invocation, typename Run>
    int change(const Invocation &invocation, Run run)
    {
        const QCoreApplication application(argc, argv);
        SingleInstance instance(invocation.dataDir);
        RequestRunner runner(invocation.dataDir, instance, instance);
        const CommandResult result = run(invocation, runner);
        print(result.output);
        for (const QString &note : result.notes)
            complain(note);
        if (!result.complaint.isEmpty())
            complain(result.complaint);
        return result.exitCode;
    }

    int follow(const StatusInvocation &invocation)
    {
        const QCoreApplication application(argc, argv);
        const auto termination = makeTerminationSignal();
        const auto medium = ::isatty(STDOUT_FILENO) == 1 ? StatusWatch::Medium::terminal
                                                         : StatusWatch::Medium::stream;
        StatusWatch watch(invocation, medium, [](const QByteArray &status) {
            print(status);
            std::fflush(stdout);
        });
        const auto fail = [&] { complainOfMonitors(invocation.dataDir); };
        QObject::connect(&watch, &StatusWatch::failed, fail);
        QObject::connect(termination.get(), &TerminationSignal::terminationRequested, &application,
                         &QCoreApplication::quit);
        if (watch.start())
            return QCoreApplication::exec();
        fail();
        return exitFailed;
    }

    static void complainOfMonitors(const QString &dataDir)
    {
        complain(u"can't read "_s + StoredRecords::monitorsPath(dataDir));
    }

    static void complainOfSilence(const QString &dataDir)
    {
        complain(u"another Ostrel that doesn't answer uses "_s + dataDir);
    }

    static int watch(RecordsReader &records, SingleInstance &instance,
                     const TerminationSignal &termination, const Circumstances &circumstances)
    {
        // First, while other threads are working.
        auto views = std::make_unique<MainWindowLoader>();
        views->prepare();

        NotificationPresenter presenter; // The status bar's, once there is one.
        const auto notificationCenter = makeNotificationCenter(
            [&presenter](const NotificationRequest &request) { presenter(request); });
        const auto wakeSignal = makeWakeSignal();
        const auto networkPresence = makeNetworkPresence();
        const auto loginItem = circumstances.makeLoginItem();
        const auto workspace = makeWorkspace();
        const auto preferences = makeDesktopPreferences();
        const auto statusBarHost = makeStatusBarHost();

        CurlNetwork network(circumstances.network);
        const auto dropConnections = [&] { network.dropConnections(); };
        QObject::connect(wakeSignal.get(), &WakeSignal::didWake, &instance, dropConnections);
        QObject::connect(networkPresence.get(), &NetworkPresence::isPresentChanged, &instance,
                         dropConnections);
        NotificationManager notifications(*notificationCenter);
        HttpCheck httpCheck(network);
        PortCheck portCheck(network);
        TimerSleeper sleeper(&continuousNow);

        OstrelApp app(std::move(views), records.storageDir(), records.take(),
                      {
                          .httpCheck = httpCheck,
                          .portCheck = portCheck,
                          .notificationCenter = *notificationCenter,
                          .notifications = notifications,
                          .wakeSignal = *wakeSignal,
                          .networkPresence = *networkPresence,
                          .sleeper = sleeper,
                          .loginItem = *loginItem,
                          .workspace = *workspace,
                          .preferences = *preferences,
                          .statusBarHost = *statusBarHost,
                          .network = network,
                          .prepareIconThread = &lowerThreadPriority,
                          .folderOwnership = &instance,
                      });
        tellOfFailures(app.store());
        presenter = [&app](const NotificationRequest &request) {
            app.statusBarItem().present(request);
        };
        QObject::connect(&instance, &SingleInstance::activationRequested, &app.delegate(),
                         &AppDelegate::reopen);
        QObject::connect(&instance, &SingleInstance::newMonitorRequested, &app,
                         &OstrelApp::addMonitor);
        QObject::connect(&instance, &SingleInstance::requested, &app.requests(),
                         &MonitorRequests::answer);
        bool isEnding = false; // Before the application's own loop, others run for a moment.
        const auto end = [&isEnding] {
            isEnding = true;
            QCoreApplication::quit();
        };
        QObject::connect(&instance, &SingleInstance::quitRequested, &app, end);
        QObject::connect(&instance, &SingleInstance::ownershipLost, &app, [end] {
            complain(u"another Ostrel has taken the data folder over"_s);
            end();
        });
        QObject::connect(&termination, &TerminationSignal::terminationRequested, &app, end);
        if (!app.show())
            return exitFailed;
        if (circumstances.addsMonitor)
            app.addMonitor();
        return isEnding ? 0 : QCoreApplication::exec();
    }
};

/// Ends the program at once if a thread that isn't waited for is still running: it may use the
/// static objects that an orderly exit would destroy.
void endUnderThreads(int code)
{
    if (!WorkThread::isAnyLeftBehind() && !isAnyDetachedThreadAtWork())
        return;
    std::fflush(nullptr);
    std::_Exit(code);
}

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    return arguments;
}

} // namespace

int main(int argc, char **argv)
{
    raiseDescriptorLimit();
    QCoreApplication::setOrganizationName(u"Ostrel"_s);
    QCoreApplication::setApplicationName(u"Ostrel"_s);
    const int code = std::visit(Program{argc, argv}, parseCommandLine(argumentsOf(argc, argv)));
    endUnderThreads(code);
    return code;
}
