#include "StatusArguments.h"

#include "CommandArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel status [--json] [--watch] [--data-dir DIR]\n"
           "\n"
           "Prints every monitor with its status, last result and uptimes, from the files,\n"
           "also while Ostrel runs.\n"
           "\n"
           "Options:\n"
           "  --json              print JSON\n"
           "  --watch             print it again at every change, until Ctrl+C: in place on\n"
           "                      a terminal, otherwise with a blank line between two\n"
           "  --data-dir DIR      read monitors and history in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel status\n"
           "  ostrel status --json\n"
           "  ostrel status --watch\n"
           "\n"
           "Exit status: 0 done, 1 the monitors can't be read, 2 unusable arguments.\n"_s;
}

Invocation parseStatus(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({jsonOption(), {u"watch"_s, {}}, dataDirOption()});
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (const auto problem = excessOf(parser, 0))
        return *problem;
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    return StatusInvocation{
        .dataDir = *dataDir,
        .format = formatOf(parser),
        .isFollowed = parser.isSet(u"watch"_s),
    };
}

} // namespace

Command statusCommand()
{
    return {.name = u"status"_s,
            .summary = u"print every monitor with its status and uptimes"_s,
            .help = help(),
            .parse = parseStatus};
}

} // namespace ostrel
