#include "CommandLine.h"

#include "Address.h"
#include "FieldText.h"
#include "FormValidation.h"
#include "HostAndPort.h"
#include "MonitorStore.h"
#include "OneLine.h"
#include "SavedAddress.h"

#include <QCommandLineParser>
#include <QDir>
#include <QRegularExpression>

#include <cmath>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QCommandLineOption dataDirOption()
{
    return {u"data-dir"_s, {}, u"DIR"_s};
}

QCommandLineOption jsonOption()
{
    return {u"json"_s, {}};
}

/// The value of an option, converted by the option's conversion function.
template<typename Value>
struct OptionValue
{
    bool isUsable = true;
    std::optional<Value> value = {};
};

template<typename Value, typename Convert>
OptionValue<Value> optionValue(const QCommandLineParser &parser, const QString &name,
                               Convert convert)
{
    if (!parser.isSet(name))
        return {};
    const std::optional<Value> value = convert(parser.value(name));
    return {.isUsable = value.has_value(), .value = value};
}

std::optional<qint64> portFrom(const QString &value)
{
    bool isNumber = false;
    const int port = value.toInt(&isNumber);
    if (!isNumber || port < 1 || port > std::numeric_limits<quint16>::max())
        return std::nullopt;
    return port;
}

std::optional<double> positiveNumberFrom(const QString &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || number <= 0)
        return std::nullopt;
    return number;
}

UnusableInvocation unusable(const QString &reason)
{
    return {.reason = reason};
}

QString quoted(const QString &argument)
{
    return u'\'' + oneLine(argument) + u'\'';
}

UnusableInvocation unusableOption(const QCommandLineParser &parser, const QString &name)
{
    return unusable(quoted(parser.value(name)) + u" is no usable value for --"_s + name + u'.');
}

UnusableInvocation unusableLine(const QCommandLineParser &parser)
{
    return unusable(oneLine(parser.errorText()));
}

std::optional<Language> languageFrom(const QString &value)
{
    if (value == u"en"_s)
        return Language::english;
    if (value == u"pseudo"_s)
        return Language::pseudo;
    return std::nullopt;
}

QString generalHelp()
{
    return u"Usage: ostrel [--add-monitor] [--data-dir DIR] [--language LANGUAGE]\n"
           "       ostrel --demo [--language LANGUAGE]\n"
           "       ostrel --quit [--data-dir DIR]\n"
           "       ostrel check ADDRESS [options]\n"
           "       ostrel status [--json] [--data-dir DIR]\n"
           "\n"
           "Ostrel watches web addresses and TCP ports, and tells you when one is down.\n"
           "Without a command it opens its window and watches; a second start shows the\n"
           "window of the first.\n"
           "\n"
           "Commands:\n"
           "  check ADDRESS         make one check, touching no file, and print it; without\n"
           "                        a scheme ADDRESS is completed with https://, and\n"
           "                        HOST:PORT means a TCP connection\n"
           "    --port N            open a TCP connection to port N instead of fetching\n"
           "    --method M          GET (default), HEAD or POST\n"
           "    --timeout S         give up after S seconds (default 30)\n"
           "    --keyword TEXT      down unless the page holds TEXT\n"
           "    --keyword-absent    with --keyword: down if the page holds it\n"
           "    --threshold MS      say so when the answer takes longer than MS milliseconds\n"
           "    --json              print the check's JSON\n"
           "  status                print every monitor with its status, last result and\n"
           "                        uptimes, from the files, also while Ostrel runs\n"
           "    --json              print JSON\n"
           "\n"
           "Options:\n"
           "  --add-monitor         show the window with the form for a new monitor\n"
           "  --demo                watch servers that this program starts itself, with a\n"
           "                        month of made-up history; nothing of yours is touched\n"
           "  --quit                end the Ostrel that watches, if there is one\n"
           "  --data-dir DIR        keep monitors and history in DIR\n"
           "  --language LANGUAGE   show the window in LANGUAGE: en (default), or pseudo, in\n"
           "                        which a text that was missed stands out\n"
           "  --version             print the version\n"
           "  --help                print this text\n"
           "\n"
           "Exit status: 0 up (or done), 1 down (or failed), 2 unusable arguments.\n"_s;
}

/// The absolute path of the folder to use; nullopt if the option is empty.
std::optional<QString> dataDirOf(const QCommandLineParser &parser)
{
    if (!parser.isSet(u"data-dir"_s))
        return MonitorStore::defaultStorageDir();
    const QString given = parser.value(u"data-dir"_s);
    return given.isEmpty() ? std::nullopt : std::optional(QDir(given).absolutePath());
}

/// What is wrong with @p parser's result; nullopt if nothing is.
std::optional<UnusableInvocation> complaint(const QCommandLineParser &parser,
                                            qsizetype expectedPositionals)
{
    const QStringList positionals = parser.positionalArguments();
    if (positionals.size() > expectedPositionals)
        return unusable(u"Unexpected argument "_s + quoted(positionals.at(expectedPositionals)) +
                        u'.');
    if (positionals.size() < expectedPositionals)
        return unusable(u"An address is missing."_s);
    return std::nullopt;
}

void addCheckOptions(QCommandLineParser &parser)
{
    parser.addOptions({
        jsonOption(),
        {u"port"_s, {}, u"N"_s},
        {u"method"_s, {}, u"M"_s, u"GET"_s},
        {u"timeout"_s, {}, u"S"_s},
        {u"keyword"_s, {}, u"TEXT"_s},
        {u"keyword-absent"_s, {}},
        {u"threshold"_s, {}, u"MS"_s},
    });
}

/// What to check: a web address, or a host if there is a port.
struct Target
{
    QString url;
    std::optional<qint64> port = {};
};

bool isWebAddress(const QString &address)
{
    const auto url = parseAddress(address);
    return url && !url->host().isEmpty() &&
           (url->scheme() == u"http"_s || url->scheme() == u"https"_s);
}

/// @p typed as the form completes it. Nullopt if the form rejects it, or would accept it although
/// it can't be fetched.
std::optional<QString> webAddressFrom(const QString &typed)
{
    static const QRegularExpression scheme(u"^\\s*[a-z][a-z0-9+.-]*://"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    const bool hasScheme = scheme.match(typed).hasMatch();
    if (!hasScheme && !isValidWebsite(typed))
        return std::nullopt;
    const QString address =
        hasScheme ? trimmedField(typed) : savedAddress(MonitorType::http, typed);
    return isWebAddress(address) ? std::optional(address) : std::nullopt;
}

std::optional<Target> portTarget(const QString &host, std::optional<qint64> port)
{
    return host.isEmpty() ? std::nullopt : std::optional(Target{.url = host, .port = port});
}

/// The host @p typed if there is a @p port, otherwise what the form reads from @p typed. Nullopt if
/// that can't be checked.
std::optional<Target> targetFrom(const QString &typed, std::optional<qint64> port)
{
    if (port)
        return portTarget(typed, port);
    if (const auto detected = detectHostAndPort(typed))
        return portTarget(trimmedField(detected->host), integerFrom(detected->portText));
    const auto address = webAddressFrom(typed);
    return address ? std::optional(Target{.url = *address}) : std::nullopt;
}

/// Complains about an option that is only valid for the other kind of check, or only together with
/// another option.
std::optional<UnusableInvocation> contradiction(const QCommandLineParser &parser,
                                                const Target &target)
{
    if (parser.isSet(u"keyword-absent"_s) && !parser.isSet(u"keyword"_s))
        return unusable(u"--keyword-absent needs --keyword."_s);
    for (const QString &webOnly : {u"method"_s, u"keyword"_s, u"threshold"_s}) {
        if (target.port && parser.isSet(webOnly))
            return unusable(u"--"_s + webOnly + u" doesn't go with a port."_s);
    }
    return std::nullopt;
}

UnusableInvocation noTarget(const QString &typed)
{
    if (typed.isEmpty())
        return unusable(u"The address is empty."_s);
    return unusable(quoted(typed) + u" is no web address and no HOST:PORT. A web address begins "
                                    "with https:// or http://."_s);
}

/// The values of the check's options.
struct CheckValues
{
    OptionValue<qint64> port;
    OptionValue<double> timeout;
    OptionValue<double> threshold;
    std::optional<HTTPMethod> method;
};

CheckValues valuesOf(const QCommandLineParser &parser)
{
    return {
        .port = optionValue<qint64>(parser, u"port"_s, portFrom),
        .timeout = optionValue<double>(parser, u"timeout"_s, positiveNumberFrom),
        .threshold = optionValue<double>(parser, u"threshold"_s, positiveNumberFrom),
        .method = httpMethodFrom(parser.value(u"method"_s).toUpper()),
    };
}

std::optional<UnusableInvocation> complaint(const QCommandLineParser &parser,
                                            const CheckValues &values)
{
    if (!values.port.isUsable)
        return unusableOption(parser, u"port"_s);
    if (!values.timeout.isUsable)
        return unusableOption(parser, u"timeout"_s);
    if (!values.threshold.isUsable)
        return unusableOption(parser, u"threshold"_s);
    if (!values.method)
        return unusableOption(parser, u"method"_s);
    return std::nullopt;
}

Monitor monitorFrom(const QCommandLineParser &parser, const CheckValues &values,
                    const Target &target)
{
    Monitor monitor{.id = QUuid::createUuid(), .url = target.url};
    monitor.method = *values.method;
    if (values.timeout.value)
        monitor.timeout = Seconds(*values.timeout.value);
    monitor.createdAt = systemNow();
    monitor.type = target.port ? MonitorType::port : MonitorType::http;
    monitor.port = target.port;
    if (parser.isSet(u"keyword"_s))
        monitor.keyword = parser.value(u"keyword"_s);
    monitor.keywordShouldExist = !parser.isSet(u"keyword-absent"_s);
    if (values.threshold.value)
        monitor.responseTimeThreshold = Milliseconds(*values.threshold.value);
    return monitor;
}

Invocation checkInvocation(const QCommandLineParser &parser)
{
    const CheckValues values = valuesOf(parser);
    if (const auto problem = complaint(parser, values))
        return *problem;
    const QString typed = parser.positionalArguments().constFirst();
    const auto target = targetFrom(typed, values.port.value);
    if (!target)
        return noTarget(typed);
    if (const auto problem = contradiction(parser, *target))
        return *problem;
    return CheckInvocation{
        .monitor = monitorFrom(parser, values, *target),
        .format = parser.isSet(u"json"_s) ? OutputFormat::json : OutputFormat::human,
    };
}

Invocation parseCheck(const QStringList &arguments)
{
    QCommandLineParser parser;
    addCheckOptions(parser);
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (const auto problem = complaint(parser, 1))
        return *problem;
    return checkInvocation(parser);
}

Invocation parseStatus(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({jsonOption(), dataDirOption()});
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (const auto problem = complaint(parser, 0))
        return *problem;
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    return StatusInvocation{
        .dataDir = *dataDir,
        .format = parser.isSet(u"json"_s) ? OutputFormat::json : OutputFormat::human,
    };
}

/// Complains about one of @p others if it is given together with @p option.
std::optional<UnusableInvocation> contradictionTo(const QCommandLineParser &parser,
                                                  const QString &option, const QStringList &others)
{
    for (const QString &name : others) {
        if (parser.isSet(option) && parser.isSet(name))
            return unusable(u"--"_s + name + u" doesn't go with --"_s + option + u'.');
    }
    return std::nullopt;
}

/// Complains about options that don't go together.
std::optional<UnusableInvocation> startContradiction(const QCommandLineParser &parser)
{
    if (auto problem = contradictionTo(parser, u"quit"_s, {u"add-monitor"_s, u"language"_s}))
        return problem;
    return contradictionTo(parser, u"demo"_s, {u"add-monitor"_s, u"data-dir"_s, u"quit"_s});
}

/// The invocation of a line whose values are usable.
Invocation startInvocation(const QCommandLineParser &parser, const QString &dataDir,
                           std::optional<Language> language)
{
    if (parser.isSet(u"quit"_s))
        return QuitInvocation{.dataDir = dataDir};
    if (parser.isSet(u"demo"_s))
        return DemoInvocation{.language = language.value_or(Language::english)};
    return RunInvocation{.dataDir = dataDir,
                         .language = language.value_or(Language::english),
                         .addsMonitor = parser.isSet(u"add-monitor"_s)};
}

Invocation parseRun(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({dataDirOption(),
                       {u"language"_s, {}, u"LANGUAGE"_s},
                       {u"add-monitor"_s, {}},
                       {u"demo"_s, {}},
                       {u"quit"_s, {}}});
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (const auto problem = complaint(parser, 0))
        return *problem;
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    const auto language = optionValue<Language>(parser, u"language"_s, languageFrom);
    if (!language.isUsable)
        return unusableOption(parser, u"language"_s);
    if (const auto problem = startContradiction(parser))
        return *problem;
    return startInvocation(parser, *dataDir, language.value);
}

} // namespace

Invocation parseCommandLine(const QStringList &arguments)
{
    const QString command = arguments.value(1);
    if (arguments.contains(u"--help"_s) || command == u"-h"_s || command == u"help"_s)
        return AnswerInvocation{.text = generalHelp()};
    if (command == u"--version"_s || command == u"-v"_s)
        return AnswerInvocation{.text = u"ostrel %1\n"_s.arg(u"" OSTREL_VERSION ""_s)};

    const QStringList rest = arguments.mid(0, 1) + arguments.mid(2);
    if (command == u"check"_s)
        return parseCheck(rest);
    if (command == u"status"_s)
        return parseStatus(rest);
    return parseRun(arguments);
}

} // namespace ostrel
