#include "CommandLine.h"

#include "MonitorStore.h"

#include <QCommandLineParser>
#include <QDir>

#include <cmath>
#include <limits>
#include <optional>

namespace ostrel {

namespace {

constexpr double defaultTimeoutSeconds = 30;

QString text(const char *english)
{
    return QString::fromLatin1(english);
}

QCommandLineOption dataDirOption()
{
    return {text("data-dir"), text("Keep monitors and history in DIR."), text("DIR")};
}

QCommandLineOption jsonOption()
{
    return {text("json"), text("Print JSON instead of text.")};
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

UnusableInvocation unusableOption(const QCommandLineParser &parser, const char *name)
{
    return unusable(QStringLiteral("'%1' is no usable value for --%2.")
                        .arg(parser.value(text(name)), text(name)));
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
                "  check ADDRESS         make one check, touching no file, and print it\n"
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
        return unusable(
            QStringLiteral("Unexpected argument '%1'.").arg(positionals.at(expectedPositionals)));
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

/// An option that only makes sense for the other kind of check, or only with another one.
std::optional<UnusableInvocation> contradiction(const QCommandLineParser &parser)
{
    if (parser.isSet(text("keyword-absent")) && !parser.isSet(text("keyword")))
        return unusable(text("--keyword-absent needs --keyword."));
    for (const char *webOnly : {"method", "keyword", "threshold"}) {
        if (parser.isSet(text("port")) && parser.isSet(text(webOnly)))
            return unusable(QStringLiteral("--%1 doesn't go with --port.").arg(text(webOnly)));
    }
    return std::nullopt;
}

Invocation checkInvocation(const QCommandLineParser &parser)
{
    const auto port = optionValue<qint64>(parser, text("port"), portFrom);
    const auto timeout = optionValue<double>(parser, text("timeout"), positiveNumberFrom);
    const auto threshold = optionValue<double>(parser, text("threshold"), positiveNumberFrom);
    const auto method = httpMethodFrom(parser.value(text("method")).toUpper());
    if (!port.isUsable)
        return unusableOption(parser, "port");
    if (!timeout.isUsable)
        return unusableOption(parser, "timeout");
    if (!threshold.isUsable)
        return unusableOption(parser, "threshold");
    if (!method)
        return unusableOption(parser, "method");

    Monitor monitor{.id = QUuid::createUuid(), .url = parser.positionalArguments().constFirst()};
    if (monitor.url.isEmpty())
        return unusable(text("The address is empty."));
    monitor.method = *method;
    monitor.timeout = Seconds(timeout.value.value_or(defaultTimeoutSeconds));
    monitor.createdAt = systemNow();
    monitor.type = port.value ? MonitorType::port : MonitorType::http;
    monitor.port = port.value;
    if (parser.isSet(text("keyword")))
        monitor.keyword = parser.value(text("keyword"));
    monitor.keywordShouldExist = !parser.isSet(text("keyword-absent"));
    if (threshold.value)
        monitor.responseTimeThreshold = Milliseconds(*threshold.value);
    return CheckInvocation{
        .monitor = monitor,
        .format = parser.isSet(text("json")) ? OutputFormat::json : OutputFormat::human,
    };
}

Invocation parseCheck(const QStringList &arguments)
{
    QCommandLineParser parser;
    addCheckOptions(parser);
    if (!parser.parse(arguments))
        return unusable(parser.errorText());
    if (const auto problem = complaint(parser, 1))
        return *problem;
    if (const auto problem = contradiction(parser))
        return *problem;
    return checkInvocation(parser);
}

Invocation parseStatus(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({jsonOption(), dataDirOption()});
    if (!parser.parse(arguments))
        return unusable(parser.errorText());
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
        return unusable(parser.errorText());
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
