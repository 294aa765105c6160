#include "EditArguments.h"

#include "CommandArguments.h"
#include "MonitorOptions.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel edit MONITOR [OPTIONS]\n"
           "\n"
           "Changes settings of a monitor; the others stay as they are. The Ostrel that\n"
           "watches takes it over at once; if none does, it is written to the files.\n"
           "MONITOR is an id, at least the first four digits of one, or a name.\n"
           "\n"
           "Options:\n"
           "  --name N            call it N\n"
           "  --address ADDRESS   watch ADDRESS, or HOST:PORT\n"
           "  --port N            watch port N of the host\n"
           "  --interval S        wait S seconds between two checks: any number above 0; the\n"
           "                      form offers 30, 60, 300, 900, 1800 and 3600\n"
           "  --method M          GET, HEAD or POST\n"
           "  --timeout S         give up after S seconds\n"
           "  --keyword TEXT      down unless the page holds TEXT\n"
           "  --keyword-absent    down if the page holds the keyword\n"
           "  --threshold MS      notify if the answer takes longer than MS milliseconds\n"
           "  --keyword-present   down unless the page holds the keyword\n"
           "  --no-keyword        don't look for a keyword\n"
           "  --no-threshold      don't notify of slow answers\n"
           "  --data-dir DIR      use the monitors in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel edit Shop --interval 30 --threshold 800\n"
           "  ostrel edit 1B2C3D4E --no-keyword\n"
           "\n"
           "Exit status: 0 done, 1 it can't be done or saved, 2 unusable arguments, or a\n"
           "MONITOR that is unknown or ambiguous.\n"_s;
}

Invocation parseEdit(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption(dataDirOption());
    addMonitorOptions(parser);
    addEditOptions(parser);
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (parser.positionalArguments().isEmpty())
        return unusable(u"A monitor is missing."_s);
    if (const auto problem = excessOf(parser, 1))
        return *problem;
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    const auto options = monitorOptionsFrom(parser);
    if (const auto *problem = std::get_if<UnusableInvocation>(&options))
        return *problem;
    if (std::get<MonitorOptions>(options) == MonitorOptions())
        return unusable(u"There is nothing to change."_s);
    return EditInvocation{.dataDir = *dataDir,
                          .name = parser.positionalArguments().constFirst(),
                          .options = std::get<MonitorOptions>(options)};
}

} // namespace

Command editCommand()
{
    return {.name = u"edit"_s,
            .summary = u"change settings of a monitor"_s,
            .help = help(),
            .parse = parseEdit};
}

} // namespace ostrel
