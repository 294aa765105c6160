#include "RemoveArguments.h"

#include "SwitchArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel remove MONITOR... [--data-dir DIR]\n"
           "\n"
           "Removes monitors and their histories, without asking back.\n"
           "The Ostrel that watches does so at once; if none does, the files are changed.\n"
           "MONITOR is an id, at least the first four digits of one, or a name.\n"
           "\n"
           "Options:\n"
           "  --data-dir DIR      use the monitors in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel remove Shop\n"
           "  ostrel remove 1B2C3D4E 9F8E7D6C\n"
           "\n"
           "Exit status: 0 done, 1 it can't be done or saved, 2 unusable arguments, or a\n"
           "MONITOR that is unknown or ambiguous.\n"_s;
}

Invocation parseRemove(const QStringList &arguments)
{
    return parseSwitch(MonitorChange::Kind::remove, arguments);
}

} // namespace

Command removeCommand()
{
    return {.name = u"remove"_s,
            .summary = u"remove monitors and their histories"_s,
            .help = help(),
            .parse = parseRemove};
}

} // namespace ostrel
