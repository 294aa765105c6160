#pragma once

#include "Monitor.h"

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
};

/// Print a text and exit.
struct AnswerInvocation
{
    QString text;
};

/// Print what is wrong with the arguments and exit with exitUnusable.
struct UnusableInvocation
{
    QString reason;
};

using Invocation = std::variant<RunInvocation, DemoInvocation, QuitInvocation, CheckInvocation,
                                StatusInvocation, AnswerInvocation, UnusableInvocation>;

inline constexpr int exitUp = 0;
inline constexpr int exitDown = 1;
inline constexpr int exitUnusable = 2;

/// Parses @p arguments, as main() gets them, with the program's name first. A single unknown
/// argument or unusable value makes the whole line unusable.
[[nodiscard]] Invocation parseCommandLine(const QStringList &arguments);

} // namespace ostrel
