#include "MetricsArguments.h"

#include "CommandArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel metrics [--data-dir DIR]\n"
           "\n"
           "Prints the state of every monitor in the OpenMetrics format, for Prometheus,\n"
           "from the files, also while Ostrel runs: whether it is enabled and up, its last\n"
           "response time, check and certificate, its uptimes and the checks in its history.\n"
           "\n"
           "Options:\n"
           "  --data-dir DIR      read monitors and history in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel metrics\n"
           "  ostrel metrics > new && mv new ostrel.prom\n"
           "                      for the node exporter's textfile collector, by a timer in\n"
           "                      its directory\n"
           "\n"
           "Exit status: 0 done, 1 the monitors can't be read, 2 unusable arguments.\n"_s;
}

Invocation parseMetrics(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption(dataDirOption());
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (const auto problem = excessOf(parser, 0))
        return *problem;
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    return MetricsInvocation{.dataDir = *dataDir};
}

} // namespace

Command metricsCommand()
{
    return {.name = u"metrics"_s,
            .summary = u"print the state of every monitor for Prometheus"_s,
            .help = help(),
            .parse = parseMetrics};
}

} // namespace ostrel
