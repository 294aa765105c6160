#pragma once

#include "Invocation.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <optional>

namespace ostrel {

// What the parsers of all commands share.

[[nodiscard]] QCommandLineOption dataDirOption();
[[nodiscard]] QCommandLineOption jsonOption();

/// The value of an option, converted by the option's conversion function.
template<typename Value>
struct OptionValue
{
    bool isUsable = true;
    std::optional<Value> value = {}; ///< Nullopt if the option isn't given, or isn't usable.
};

/// The value of the option @p name. @p convert returns nullopt for a text that is no value of it.
template<typename Value, typename Convert>
[[nodiscard]] OptionValue<Value> optionValue(const QCommandLineParser &parser, const QString &name,
                                             Convert convert)
{
    if (!parser.isSet(name))
        return {};
    const std::optional<Value> value = convert(parser.value(name));
    return {.isUsable = value.has_value(), .value = value};
}

/// A number of a TCP port, 1 to 65535; nullopt for every other text.
[[nodiscard]] std::optional<qint64> portFrom(const QString &value);
/// A finite number above 0; nullopt for every other text.
[[nodiscard]] std::optional<double> positiveNumberFrom(const QString &value);
[[nodiscard]] OutputFormat formatOf(const QCommandLineParser &parser);
/// The absolute path of the folder to use; nullopt if the option is empty.
[[nodiscard]] std::optional<QString> dataDirOf(const QCommandLineParser &parser);

/// @p argument in quotes, on one line.
[[nodiscard]] QString quoted(const QString &argument);
/// Says that @p typed is no address that can be checked.
[[nodiscard]] QString noTarget(const QString &typed);
[[nodiscard]] UnusableInvocation unusable(const QString &reason);
/// Names the option @p name and its value.
[[nodiscard]] UnusableInvocation unusableOption(const QCommandLineParser &parser,
                                                const QString &name);
/// Says what @p parser complained about.
[[nodiscard]] UnusableInvocation unusableLine(const QCommandLineParser &parser);
/// Complains about the positional arguments after the first @p count; nullopt if there are none.
[[nodiscard]] std::optional<UnusableInvocation> excessOf(const QCommandLineParser &parser,
                                                         qsizetype count);

} // namespace ostrel
