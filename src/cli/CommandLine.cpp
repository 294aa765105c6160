#include "CommandLine.h"

#include "AddArguments.h"
#include "CheckArguments.h"
#include "CheckNowArguments.h"
#include "CommandArguments.h"
#include "EditArguments.h"
#include "ExportArguments.h"
#include "ImportArguments.h"
#include "ListArguments.h"
#include "MetricsArguments.h"
#include "PauseArguments.h"
#include "RemoveArguments.h"
#include "ResumeArguments.h"
#include "StartArguments.h"
#include "StatusArguments.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString commandList()
{
    QString lines;
    for (const Command &command : allCommands())
        lines += u"  "_s + command.name.leftJustified(12) + command.summary + u'\n';
    return lines;
}

/// Fits a terminal of 24 lines and 80 columns.
QString generalHelp()
{
    return u"Usage: ostrel [OPTIONS]           watch the monitors, or show what is running\n"
           "       ostrel COMMAND [...]       do one thing here in the terminal\n"
           "\n"
           "Commands ('ostrel COMMAND --help' explains one):\n"_s +
           commandList() +
           u"Options:\n"
           "  --add-monitor        show the window with the form for a new monitor\n"
           "  --demo               watch servers of its own, to try it out; touches nothing\n"
           "  --quit               end the Ostrel that watches, if there is one\n"
           "  --data-dir DIR       keep monitors and history in DIR\n"
           "  --language LANGUAGE  en (default), or pseudo, in which missed texts stand out\n"
           "  --version, --help    print the version, or this text\n"
           "Exit status: 0 done or up, 1 failed or down, 2 unusable arguments.\n"_s;
}

/// Null if there is no command of that name.
const Command *commandNamed(const QString &name)
{
    const auto found = std::ranges::find(allCommands(), name, &Command::name);
    return found == allCommands().end() ? nullptr : &*found;
}

Invocation helpOn(const QString &name)
{
    if (name.isEmpty())
        return AnswerInvocation{.text = generalHelp()};
    if (const Command *command = commandNamed(name))
        return AnswerInvocation{.text = command->help};
    return unusable(quoted(name) + u" is no command."_s);
}

Invocation parse(const Command &command, const QStringList &arguments)
{
    Invocation invocation = command.parse(arguments);
    if (auto *problem = std::get_if<UnusableInvocation>(&invocation))
        problem->command = command.name;
    return invocation;
}

bool asksForHelp(const QStringList &arguments)
{
    const auto end = std::ranges::find(arguments, u"--"_s);
    return arguments.value(1) == u"-h"_s || std::find(arguments.begin(), end, u"--help"_s) != end;
}

} // namespace

const QList<Command> &allCommands()
{
    static const QList<Command> commands = {checkCommand(),  statusCommand(), listCommand(),
                                            addCommand(),    editCommand(),   pauseCommand(),
                                            resumeCommand(), removeCommand(), checkNowCommand(),
                                            exportCommand(), importCommand(), metricsCommand()};
    return commands;
}

Invocation parseCommandLine(const QStringList &arguments)
{
    const QString name = arguments.value(1);
    if (name == u"help"_s)
        return helpOn(arguments.value(2));
    const Command *command = commandNamed(name);
    const QStringList rest = command ? arguments.mid(0, 1) + arguments.mid(2) : arguments;
    if (asksForHelp(rest))
        return helpOn(command ? name : QString());
    if (name == u"--version"_s || name == u"-v"_s)
        return AnswerInvocation{.text = u"ostrel %1\n"_s.arg(u"" OSTREL_VERSION ""_s)};
    return command ? parse(*command, rest) : parseStart(rest);
}

} // namespace ostrel
