#pragma once

#include "Monitor.h"

#include <QCommandLineParser>
#include <QString>

#include <optional>
#include <variant>

namespace ostrel {

struct UnusableInvocation;

/// The settings of a monitor that a command line gives; absent ones aren't given.
struct MonitorOptions
{
    std::optional<QString> name = {};
    std::optional<QString> address = {}; ///< As typed.
    std::optional<qint64> port = {};
    std::optional<Seconds> interval = {};
    std::optional<HTTPMethod> method = {};
    std::optional<Seconds> timeout = {};
    std::optional<QString> keyword = {}; ///< Empty if the keyword shall go.
    std::optional<bool> keywordShouldExist = {};
    std::optional<Milliseconds> threshold = {}; ///< 0 if the threshold shall go.

    bool operator==(const MonitorOptions &) const = default;
};

/// Adds the options of `ostrel add`.
void addMonitorOptions(QCommandLineParser &parser);
/// Adds those that only an existing monitor has a use for.
void addEditOptions(QCommandLineParser &parser);
/// What @p parser has found, without an address that isn't an option.
[[nodiscard]] std::variant<MonitorOptions, UnusableInvocation>
monitorOptionsFrom(const QCommandLineParser &parser);

/// A new monitor by the rules of the form, or a sentence for users about what is wrong.
[[nodiscard]] std::variant<Monitor, QString> newMonitorFrom(const MonitorOptions &options,
                                                            Timestamp createdAt);
/// @p monitor with the settings of @p options by the rules of the form, or a sentence for users
/// about what is wrong.
[[nodiscard]] std::variant<Monitor, QString> withOptions(const Monitor &monitor,
                                                         const MonitorOptions &options);

} // namespace ostrel
