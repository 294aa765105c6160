#pragma once

#include "ImportPlan.h"
#include "Monitor.h"
#include "MonitorChange.h"
#include "MonitorOptions.h"

#include <QString>
#include <QStringList>

#include <variant>

namespace ostrel {

// What the arguments ask the program to do.

enum class Language {
    english,
    pseudo, ///< For translators: every translatable text is marked and made longer.
};

/// Open the window and watch the monitors.
struct RunInvocation
{
    QString dataDir;
    Language language = Language::english;
    bool addsMonitor = false; ///< Begin with the form for a new monitor.
};

/// Open the window and watch the servers of a demo.
struct DemoInvocation
{
    Language language = Language::english;
};

/// End the program that watches the monitors.
struct QuitInvocation
{
    QString dataDir;
};

enum class OutputFormat { human, json };

/// Run one check and print it.
struct CheckInvocation
{
    Monitor monitor;
    OutputFormat format = OutputFormat::human;
};

/// Print the status of every monitor.
struct StatusInvocation
{
    QString dataDir;
    OutputFormat format = OutputFormat::human;
    bool isFollowed = false; ///< Print it again at every change, until a signal.
};

enum class ListFormat { human, json, names };

/// Print every monitor's settings.
struct ListInvocation
{
    QString dataDir;
    ListFormat format = ListFormat::human;
};

/// Add a monitor.
struct AddInvocation
{
    QString dataDir;
    Monitor monitor;
};

/// Change settings of a monitor.
struct EditInvocation
{
    QString dataDir;
    QString name; ///< The monitor, as typed.
    MonitorOptions options;
};

/// Pause, resume or remove monitors.
struct SwitchInvocation
{
    QString dataDir;
    MonitorChange::Kind kind;
    QStringList names; ///< The monitors, as typed.
};

/// Check monitors at once.
struct CheckNowInvocation
{
    QString dataDir;
    QStringList names; ///< The monitors, as typed.
    OutputFormat format = OutputFormat::human;
};

enum class ExportFormat {
    json,       ///< The monitors, and the history if wanted.
    csv,        ///< The history as a table.
    prometheus, ///< A folder with a configuration of Prometheus.
};

/// Write the monitors to a file, to a folder, or to stdout.
struct ExportInvocation
{
    QString dataDir;
    QString path = {}; ///< Empty for stdout.
    ExportFormat format = ExportFormat::json;
    bool hasHistory = false; ///< Only matters to JSON.
    bool replaces = false;   ///< Existing files are replaced.
};

/// Add what a file offers.
struct ImportInvocation
{
    QString dataDir;
    QString path = {}; ///< Empty for stdin.
    ImportPolicy policy = ImportPolicy::refuse;
    bool isDryRun = false; ///< Only print what would be done.
};

/// Print the state of every monitor for Prometheus.
struct MetricsInvocation
{
    QString dataDir;
};

/// Print a text and exit.
struct AnswerInvocation
{
    QString text;
};

/// Print what is wrong with the arguments and exit with exitUnusable.
struct UnusableInvocation
{
    QString reason;       ///< One sentence.
    QString command = {}; ///< The name of the command that they were meant for; may be empty.
};

using Invocation =
    std::variant<RunInvocation, DemoInvocation, QuitInvocation, CheckInvocation, StatusInvocation,
                 ListInvocation, AddInvocation, EditInvocation, SwitchInvocation,
                 CheckNowInvocation, ExportInvocation, ImportInvocation, MetricsInvocation,
                 AnswerInvocation, UnusableInvocation>;

inline constexpr int exitDone = 0;
inline constexpr int exitFailed = 1;
inline constexpr int exitUnusable = 2;

} // namespace ostrel
