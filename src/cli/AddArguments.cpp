#include "AddArguments.h"

#include "CommandArguments.h"
#include "MonitorOptions.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel add ADDRESS [OPTIONS]\n"
           "\n"
           "Adds a monitor. ADDRESS is what the form takes: without a scheme it is completed\n"
           "with https://, and HOST:PORT means a TCP port. The Ostrel that watches takes it\n"
           "over at once; if none does, it is written to the files.\n"
           "\n"
           "Options:\n"
           "  --name N            call it N instead of after its address\n"
           "  --port N            watch port N of the host ADDRESS\n"
           "  --interval S        wait S seconds between two checks: any number above 0; the\n"
           "                      form offers 30, 60, 300 (default), 900, 1800 and 3600\n"
           "  --method M          GET (default), HEAD or POST\n"
           "  --timeout S         give up after S seconds (default 30)\n"
           "  --keyword TEXT      down unless the page holds TEXT\n"
           "  --keyword-absent    down if the page holds the keyword\n"
           "  --threshold MS      notify if the answer takes longer than MS milliseconds\n"
           "  --data-dir DIR      use the monitors in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel add example.org --keyword welcome --interval 60\n"
           "  ostrel add db.example.org:5432 --name Database\n"
           "\n"
           "Exit status: 0 done, 1 it can't be done or saved, 2 unusable arguments.\n"_s;
}

Invocation parseAdd(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption(dataDirOption());
    addMonitorOptions(parser);
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (parser.positionalArguments().isEmpty())
        return unusable(u"An address is missing."_s);
    if (const auto problem = excessOf(parser, 1))
        return *problem;
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    auto read = monitorOptionsFrom(parser);
    if (const auto *problem = std::get_if<UnusableInvocation>(&read))
        return *problem;
    auto &options = std::get<MonitorOptions>(read);
    options.address = parser.positionalArguments().constFirst();
    const auto monitor = newMonitorFrom(options, systemNow());
    if (const auto *complaint = std::get_if<QString>(&monitor))
        return unusable(*complaint);
    return AddInvocation{.dataDir = *dataDir, .monitor = std::get<Monitor>(monitor)};
}

} // namespace

Command addCommand()
{
    return {.name = u"add"_s, .summary = u"add a monitor"_s, .help = help(), .parse = parseAdd};
}

} // namespace ostrel
