#include "ExportArguments.h"

#include "CommandArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel export [FILE] [--history] [--format FORMAT] [--force]\n"
           "                     [--data-dir DIR]\n"
           "       ostrel export DIRECTORY --format prometheus [--force] [--data-dir DIR]\n"
           "\n"
           "Writes the monitors to FILE, or to standard output without it or if it is '-',\n"
           "from the files, also while Ostrel runs. 'ostrel import' reads JSON back.\n"
           "\n"
           "Options:\n"
           "  --history           write the history, too\n"
           "  --format FORMAT     json (default); csv, the history as a table for a\n"
           "                      spreadsheet; or prometheus, a directory with which\n"
           "                      Prometheus and its blackbox exporter watch the same\n"
           "  --force             replace what exists\n"
           "  --data-dir DIR      read monitors and history in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel export monitors.json\n"
           "  ostrel export --history --force ~/backup/ostrel.json\n"
           "  ostrel export history.csv --format csv\n"
           "  ostrel export prometheus --format prometheus\n"
           "\n"
           "Exit status: 0 done, 1 a file can't be read or written, or exists, 2 unusable\n"
           "arguments.\n"_s;
}

std::optional<ExportFormat> formatFrom(const QString &value)
{
    if (value == u"json"_s)
        return ExportFormat::json;
    if (value == u"csv"_s)
        return ExportFormat::csv;
    if (value == u"prometheus"_s)
        return ExportFormat::prometheus;
    return std::nullopt;
}

/// Complains about options that don't go together.
std::optional<UnusableInvocation> contradiction(const ExportInvocation &invocation)
{
    if (invocation.format != ExportFormat::prometheus)
        return std::nullopt;
    if (invocation.hasHistory)
        return unusable(u"--history doesn't go with --format prometheus."_s);
    if (invocation.path.isEmpty())
        return unusable(u"--format prometheus needs a directory."_s);
    return std::nullopt;
}

/// The file to write; empty for stdout.
QString pathOf(const QCommandLineParser &parser)
{
    const QString given = parser.positionalArguments().value(0);
    return given == u"-"_s ? QString() : given;
}

Invocation exportInvocation(const QCommandLineParser &parser)
{
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    const auto format = optionValue<ExportFormat>(parser, u"format"_s, formatFrom);
    if (!format.isUsable)
        return unusableOption(parser, u"format"_s);
    const ExportInvocation invocation{.dataDir = *dataDir,
                                      .path = pathOf(parser),
                                      .format = format.value.value_or(ExportFormat::json),
                                      .hasHistory = parser.isSet(u"history"_s),
                                      .replaces = parser.isSet(u"force"_s)};
    if (const auto problem = contradiction(invocation))
        return *problem;
    return invocation;
}

Invocation parseExport(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions(
        {dataDirOption(), {u"history"_s, {}}, {u"format"_s, {}, u"FORMAT"_s}, {u"force"_s, {}}});
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (const auto problem = excessOf(parser, 1))
        return *problem;
    if (parser.positionalArguments().contains(QString()))
        return unusable(u"The file has no name."_s);
    return exportInvocation(parser);
}

} // namespace

Command exportCommand()
{
    return {.name = u"export"_s,
            .summary = u"write the monitors, or their history, to a file"_s,
            .help = help(),
            .parse = parseExport};
}

} // namespace ostrel
