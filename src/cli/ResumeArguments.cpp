#include "ResumeArguments.h"

#include "SwitchArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel resume MONITOR... [--data-dir DIR]\n"
           "\n"
           "Resumes monitors that are paused, with a check at once.\n"
           "The Ostrel that watches does so at once; if none does, the files are changed.\n"
           "MONITOR is an id, at least the first four digits of one, or a name.\n"
           "\n"
           "Options:\n"
           "  --data-dir DIR      use the monitors in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel resume Shop\n"
           "\n"
           "Exit status: 0 done, 1 it can't be done or saved, 2 unusable arguments, or a\n"
           "MONITOR that is unknown or ambiguous.\n"_s;
}

Invocation parseResume(const QStringList &arguments)
{
    return parseSwitch(MonitorChange::Kind::resume, arguments);
}

} // namespace

Command resumeCommand()
{
    return {.name = u"resume"_s,
            .summary = u"check paused monitors again"_s,
            .help = help(),
            .parse = parseResume};
}

} // namespace ostrel
