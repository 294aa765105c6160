#include "CheckNowArguments.h"

#include "CommandArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel check-now MONITOR... [--json] [--data-dir DIR]\n"
           "\n"
           "Checks monitors at once, paused ones too, waits for the results and prints them.\n"
           "They become part of the history. The Ostrel that watches makes the checks; if\n"
           "none does, this command makes them, and nothing is notified.\n"
           "MONITOR is an id, at least the first four digits of one, or a name.\n"
           "\n"
           "Options:\n"
           "  --json              print each check's JSON on a line\n"
           "  --data-dir DIR      use the monitors in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel check-now Shop\n"
           "  ostrel check-now Shop 1B2C3D4E --json\n"
           "\n"
           "Exit status: 0 all are up, 1 one is down or couldn't be checked, 2 unusable\n"
           "arguments, or a MONITOR that is unknown or ambiguous.\n"_s;
}

Invocation parseCheckNow(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({jsonOption(), dataDirOption()});
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (parser.positionalArguments().isEmpty())
        return unusable(u"A monitor is missing."_s);
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    return CheckNowInvocation{
        .dataDir = *dataDir, .names = parser.positionalArguments(), .format = formatOf(parser)};
}

} // namespace

Command checkNowCommand()
{
    return {.name = u"check-now"_s,
            .summary = u"check monitors at once, and print the results"_s,
            .help = help(),
            .parse = parseCheckNow};
}

} // namespace ostrel
