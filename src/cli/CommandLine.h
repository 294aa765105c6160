#pragma once

#include "Monitor.h"

#include <QString>
#include <QStringList>

#include <variant>

namespace ostrel {

// What the program was asked to do.

enum class Language {
    english,
    pseudo, ///< For those who translate: every text that can be, marked and made longer.
};

/// Watch, with the window.
struct RunInvocation
{
    QString dataDir;
    Language language = Language::english;
};

enum class OutputFormat { human, json };

/// Make one check, and tell.
struct CheckInvocation
{
    Monitor monitor;
    OutputFormat format = OutputFormat::human;
};

/// Tell how every monitor is.
struct StatusInvocation
{
    QString dataDir;
    OutputFormat format = OutputFormat::human;
};

/// Say something, and end.
struct AnswerInvocation
{
    QString text;
};

/// Say what is wrong with the arguments, and end with exitUnusable.
struct UnusableInvocation
{
    QString reason;
};

using Invocation = std::variant<RunInvocation, CheckInvocation, StatusInvocation, AnswerInvocation,
                                UnusableInvocation>;

inline constexpr int exitUp = 0;
inline constexpr int exitDown = 1;
inline constexpr int exitUnusable = 2;

/// @p arguments as main() gets them, the program's name first. An argument that isn't known, or
/// whose value isn't usable, makes the whole line unusable.
[[nodiscard]] Invocation parseCommandLine(const QStringList &arguments);

} // namespace ostrel
