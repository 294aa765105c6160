#include "SwitchArguments.h"

#include "CommandArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

Invocation parseSwitch(MonitorChange::Kind kind, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption(dataDirOption());
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (parser.positionalArguments().isEmpty())
        return unusable(u"A monitor is missing."_s);
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    return SwitchInvocation{
        .dataDir = *dataDir, .kind = kind, .names = parser.positionalArguments()};
}

} // namespace ostrel
