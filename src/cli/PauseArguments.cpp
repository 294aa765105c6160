#include "PauseArguments.h"

#include "SwitchArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel pause MONITOR... [--data-dir DIR]\n"
           "\n"
           "Pauses monitors: they are no longer checked until they are resumed.\n"
           "The Ostrel that watches does so at once; if none does, the files are changed.\n"
           "MONITOR is an id, at least the first four digits of one, or a name.\n"
           "\n"
           "Options:\n"
           "  --data-dir DIR      use the monitors in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel pause Shop\n"
           "  ostrel pause Shop \"My blog\" 1B2C3D4E\n"
           "\n"
           "Exit status: 0 done, 1 it can't be done or saved, 2 unusable arguments, or a\n"
           "MONITOR that is unknown or ambiguous.\n"_s;
}

Invocation parsePause(const QStringList &arguments)
{
    return parseSwitch(MonitorChange::Kind::pause, arguments);
}

} // namespace

Command pauseCommand()
{
    return {.name = u"pause"_s,
            .summary = u"stop checking monitors until they are resumed"_s,
            .help = help(),
            .parse = parsePause};
}

} // namespace ostrel
