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

namespace ostrel {

namespace {

QString text(const char *english)
{
    return QString::fromLatin1(english);
}

QCommandLineOption dataDirOption()
{
    return {text("data-dir"), {}, text("DIR")};
}

QCommandLineOption jsonOption()
{
    return {text("json"), {}};
}

/// A value of @p name that the arguments give, converted by @p convert.
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

UnusableInvocation unusableOption(const QCommandLineParser &parser, const char *name)
{
    return unusable(quoted(parser.value(text(name))) +
                    QStringLiteral(" is no usable value for --") + text(name) + u'.');
}

UnusableInvocation unusableLine(const QCommandLineParser &parser)
{
    return unusable(oneLine(parser.errorText()));
}

std::optional<Language> languageFrom(const QString &value)
{
    if (value == text("en"))
        return Language::english;
    if (value == text("pseudo"))
        return Language::pseudo;
    return std::nullopt;
}

QString generalHelp()
{
    return text("Usage: ostrel [--data-dir DIR] [--language LANGUAGE]\n"
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
                "  --data-dir DIR        keep monitors and history in DIR\n"
                "  --language LANGUAGE   show the window in LANGUAGE: en (default), or pseudo, in\n"
                "                        which a text that was missed stands out\n"
                "  --version             print the version\n"
                "  --help                print this text\n"
                "\n"
                "Exit status: 0 up (or done), 1 down (or failed), 2 unusable arguments.\n");
}

/// The folder that is to be used, absolute; nothing for an empty one.
std::optional<QString> dataDirOf(const QCommandLineParser &parser)
{
    if (!parser.isSet(text("data-dir")))
        return MonitorStore::defaultStorageDir();
    const QString given = parser.value(text("data-dir"));
    return given.isEmpty() ? std::nullopt : std::optional(QDir(given).absolutePath());
}

/// The complaint about @p parser's outcome, with nothing where there is none.
std::optional<UnusableInvocation> complaint(const QCommandLineParser &parser,
                                            qsizetype expectedPositionals)
{
    const QStringList positionals = parser.positionalArguments();
    if (positionals.size() > expectedPositionals)
        return unusable(QStringLiteral("Unexpected argument ") +
                        quoted(positionals.at(expectedPositionals)) + u'.');
    if (positionals.size() < expectedPositionals)
        return unusable(text("An address is missing."));
    return std::nullopt;
}

void addCheckOptions(QCommandLineParser &parser)
{
    parser.addOptions({
        jsonOption(),
        {text("port"), {}, text("N")},
        {text("method"), {}, text("M"), text("GET")},
        {text("timeout"), {}, text("S")},
        {text("keyword"), {}, text("TEXT")},
        {text("keyword-absent"), {}},
        {text("threshold"), {}, text("MS")},
    });
}

/// What is to be checked: a web address, or a host where there is a port.
struct Target
{
    QString url;
    std::optional<qint64> port = {};
};

bool isWebAddress(const QString &address)
{
    const auto url = parseAddress(address);
    return url && !url->host().isEmpty() &&
           (url->scheme() == text("http") || url->scheme() == text("https"));
}

/// @p typed as the form completes it. Nothing where the form refuses it, or would take it although
/// it can't be fetched.
std::optional<QString> webAddressFrom(const QString &typed)
{
    static const QRegularExpression scheme(text("^\\s*[a-z][a-z0-9+.-]*://"),
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

/// With @p port its host, otherwise what the form reads in @p typed. Nothing where that can't be
/// checked.
std::optional<Target> targetFrom(const QString &typed, std::optional<qint64> port)
{
    if (port)
        return portTarget(typed, port);
    if (const auto detected = detectHostAndPort(typed))
        return portTarget(trimmedField(detected->host), integerFrom(detected->portText));
    const auto address = webAddressFrom(typed);
    return address ? std::optional(Target{.url = *address}) : std::nullopt;
}

/// An option that only makes sense for the other kind of check, or only with another one.
std::optional<UnusableInvocation> contradiction(const QCommandLineParser &parser,
                                                const Target &target)
{
    if (parser.isSet(text("keyword-absent")) && !parser.isSet(text("keyword")))
        return unusable(text("--keyword-absent needs --keyword."));
    for (const char *webOnly : {"method", "keyword", "threshold"}) {
        if (target.port && parser.isSet(text(webOnly)))
            return unusable(text("--") + text(webOnly) + text(" doesn't go with a port."));
    }
    return std::nullopt;
}

UnusableInvocation noTarget(const QString &typed)
{
    if (typed.isEmpty())
        return unusable(text("The address is empty."));
    return unusable(quoted(typed) +
                    text(" is no web address and no HOST:PORT. A web address begins "
                         "with https:// or http://."));
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
        .port = optionValue<qint64>(parser, text("port"), portFrom),
        .timeout = optionValue<double>(parser, text("timeout"), positiveNumberFrom),
        .threshold = optionValue<double>(parser, text("threshold"), positiveNumberFrom),
        .method = httpMethodFrom(parser.value(text("method")).toUpper()),
    };
}

std::optional<UnusableInvocation> complaint(const QCommandLineParser &parser,
                                            const CheckValues &values)
{
    if (!values.port.isUsable)
        return unusableOption(parser, "port");
    if (!values.timeout.isUsable)
        return unusableOption(parser, "timeout");
    if (!values.threshold.isUsable)
        return unusableOption(parser, "threshold");
    if (!values.method)
        return unusableOption(parser, "method");
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
    if (parser.isSet(text("keyword")))
        monitor.keyword = parser.value(text("keyword"));
    monitor.keywordShouldExist = !parser.isSet(text("keyword-absent"));
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
        .format = parser.isSet(text("json")) ? OutputFormat::json : OutputFormat::human,
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
        return unusableOption(parser, "data-dir");
    return StatusInvocation{
        .dataDir = *dataDir,
        .format = parser.isSet(text("json")) ? OutputFormat::json : OutputFormat::human,
    };
}

Invocation parseRun(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({dataDirOption(), {text("language"), {}, text("LANGUAGE")}});
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (const auto problem = complaint(parser, 0))
        return *problem;
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, "data-dir");
    const auto language = optionValue<Language>(parser, text("language"), languageFrom);
    if (!language.isUsable)
        return unusableOption(parser, "language");
    return RunInvocation{.dataDir = *dataDir,
                         .language = language.value.value_or(Language::english)};
}

} // namespace

Invocation parseCommandLine(const QStringList &arguments)
{
    const QString command = arguments.value(1);
    if (arguments.contains(text("--help")) || command == text("-h") || command == text("help"))
        return AnswerInvocation{.text = generalHelp()};
    if (command == text("--version") || command == text("-v"))
        return AnswerInvocation{.text = QStringLiteral("ostrel %1\n").arg(text(OSTREL_VERSION))};

    const QStringList rest = arguments.mid(0, 1) + arguments.mid(2);
    if (command == text("check"))
        return parseCheck(rest);
    if (command == text("status"))
        return parseStatus(rest);
    return parseRun(arguments);
}

} // namespace ostrel
