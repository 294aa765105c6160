#include "CheckArguments.h"

#include "CheckTarget.h"
#include "CommandArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel check ADDRESS [OPTIONS]\n"
           "\n"
           "Makes one check, touching no file, and prints it. Without a scheme ADDRESS is\n"
           "completed with https://, and HOST:PORT means a TCP connection.\n"
           "\n"
           "Options:\n"
           "  --port N            open a TCP connection to port N instead of fetching\n"
           "  --method M          GET (default), HEAD or POST\n"
           "  --timeout S         give up after S seconds (default 30)\n"
           "  --keyword TEXT      down unless the page holds TEXT\n"
           "  --keyword-absent    with --keyword: down if the page holds it\n"
           "  --threshold MS      say so if the answer takes longer than MS milliseconds\n"
           "  --json              print the check's JSON\n"
           "\n"
           "Examples:\n"
           "  ostrel check example.org --keyword welcome\n"
           "  ostrel check db.example.org:5432 --timeout 5\n"
           "\n"
           "Exit status: 0 up, 1 down, 2 unusable arguments.\n"_s;
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

/// Complains about an option that is only valid for the other kind of check, or only together with
/// another option.
std::optional<UnusableInvocation> contradiction(const QCommandLineParser &parser,
                                                const CheckTarget &target)
{
    if (parser.isSet(u"keyword-absent"_s) && !parser.isSet(u"keyword"_s))
        return unusable(u"--keyword-absent needs --keyword."_s);
    for (const QString &webOnly : {u"method"_s, u"keyword"_s, u"threshold"_s}) {
        if (target.port && parser.isSet(webOnly))
            return unusable(u"--"_s + webOnly + u" doesn't go with a port."_s);
    }
    return std::nullopt;
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
                    const CheckTarget &target)
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
    const auto target = checkTargetFrom(typed, values.port.value);
    if (!target)
        return unusable(noTarget(typed));
    if (const auto problem = contradiction(parser, *target))
        return *problem;
    return CheckInvocation{
        .monitor = monitorFrom(parser, values, *target),
        .format = formatOf(parser),
    };
}

Invocation parseCheck(const QStringList &arguments)
{
    QCommandLineParser parser;
    addCheckOptions(parser);
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (parser.positionalArguments().isEmpty())
        return unusable(u"An address is missing."_s);
    if (const auto problem = excessOf(parser, 1))
        return *problem;
    return checkInvocation(parser);
}

} // namespace

Command checkCommand()
{
    return {.name = u"check"_s,
            .summary = u"make one check of an address, touching no file"_s,
            .help = help(),
            .parse = parseCheck};
}

} // namespace ostrel
