#include "ImportArguments.h"

#include "CommandArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

QString help()
{
    return u"Usage: ostrel import FILE [--dry-run] [--replace | --copy] [--data-dir DIR]\n"
           "\n"
           "Adds the monitors of FILE, or of standard input if it is '-': all of them or\n"
           "none. The Ostrel that watches adds them at once; if none does, they are added to\n"
           "the files. What is there already with the same settings is skipped.\n"
           "\n"
           "FILE is what 'ostrel export' wrote (with the history if it has that), a\n"
           "monitors.json, a JSON file of Prometheus' targets, or a list of addresses: one a\n"
           "line, HOST:PORT for a port, a name behind a tab, comments behind '#'.\n"
           "\n"
           "Options:\n"
           "  --dry-run           only print what would be done\n"
           "  --replace           give monitors that are there already the file's settings\n"
           "  --copy              add the file's monitors beside those with other settings\n"
           "  --data-dir DIR      add to the monitors in DIR\n"
           "\n"
           "Examples:\n"
           "  ostrel import monitors.json --dry-run\n"
           "  echo db.example.org:5432 | ostrel import -\n"
           "\n"
           "Exit status: 0 done, 1 nothing is imported, because of monitors that are there\n"
           "already, or it isn't saved, 2 unusable arguments or file.\n"_s;
}

ImportPolicy policyOf(const QCommandLineParser &parser)
{
    if (parser.isSet(u"replace"_s))
        return ImportPolicy::replace;
    return parser.isSet(u"copy"_s) ? ImportPolicy::copy : ImportPolicy::refuse;
}

std::optional<UnusableInvocation> complaint(const QCommandLineParser &parser)
{
    if (parser.positionalArguments().size() > 1)
        return excessOf(parser, 1);
    if (parser.positionalArguments().value(0).isEmpty())
        return unusable(u"A file is missing."_s);
    if (parser.isSet(u"replace"_s) && parser.isSet(u"copy"_s))
        return unusable(u"--replace doesn't go with --copy."_s);
    return std::nullopt;
}

Invocation parseImport(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({dataDirOption(), {u"dry-run"_s, {}}, {u"replace"_s, {}}, {u"copy"_s, {}}});
    if (!parser.parse(arguments))
        return unusableLine(parser);
    if (const auto problem = complaint(parser))
        return *problem;
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    const QString path = parser.positionalArguments().constFirst();
    return ImportInvocation{.dataDir = *dataDir,
                            .path = path == u"-"_s ? QString() : path,
                            .policy = policyOf(parser),
                            .isDryRun = parser.isSet(u"dry-run"_s)};
}

} // namespace

Command importCommand()
{
    return {.name = u"import"_s,
            .summary = u"add the monitors of a file"_s,
            .help = help(),
            .parse = parseImport};
}

} // namespace ostrel
