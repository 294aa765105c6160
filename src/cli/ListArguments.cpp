#include "ListArguments.h"

#include "CommandArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel list [--json | --names] [--data-dir DIR]\n"
           "\n"
           "Prints every monitor with the beginning of its id, its name, its address and its\n"
           "interval, from the files, also while Ostrel runs.\n"
           "\n"
           "Options:\n"
           "  --json              print all settings as JSON, as in the file of monitors\n"
           "  --names             print the names alone\n"
           "  --data-dir DIR      use the monitors in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel list\n"
           "  ostrel list --json\n"
           "\n"
           "Exit status: 0 done, 1 the monitors can't be read, 2 unusable arguments.\n"_s;
}

ListFormat listFormatOf(const QCommandLineParser &parser)
{
    if (parser.isSet(u"json"_s))
        return ListFormat::json;
    return parser.isSet(u"names"_s) ? ListFormat::names : ListFormat::human;
}

Invocation parseList(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({jsonOption(), {u"names"_s, {}}, dataDirOption()});
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (const auto problem = excessOf(parser, 0))
        return *problem;
    if (parser.isSet(u"json"_s) && parser.isSet(u"names"_s))
        return unusable(u"--names doesn't go with --json."_s);
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    return ListInvocation{.dataDir = *dataDir, .format = listFormatOf(parser)};
}

} // namespace

Command listCommand()
{
    return {.name = u"list"_s,
            .summary = u"print every monitor with its id and settings"_s,
            .help = help(),
            .parse = parseList};
}

} // namespace ostrel
