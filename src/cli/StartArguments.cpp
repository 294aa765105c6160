#include "StartArguments.h"

#include "CommandArguments.h"

using namespace Qt::StringLiterals;

namespace ostrel {

namespace {

std::optional<Language> languageFrom(const QString &value)
{
    if (value == u"en"_s)
        return Language::english;
    if (value == u"pseudo"_s)
        return Language::pseudo;
    return std::nullopt;
}

/// Complains about an option that doesn't go with --quit.
std::optional<UnusableInvocation> quitContradiction(const QCommandLineParser &parser)
{
    for (const QString &name : {u"add-monitor"_s, u"language"_s}) {
        if (parser.isSet(u"quit"_s) && parser.isSet(name))
            return unusable(u"--"_s + name + u" doesn't go with --quit."_s);
    }
    return std::nullopt;
}

/// The invocation of a line whose values are usable.
Invocation startInvocation(const QCommandLineParser &parser, const QString &dataDir,
                           std::optional<Language> language)
{
    if (parser.isSet(u"quit"_s))
        return QuitInvocation{.dataDir = dataDir};
    return RunInvocation{.dataDir = dataDir,
                         .language = language.value_or(Language::english),
                         .addsMonitor = parser.isSet(u"add-monitor"_s)};
}

} // namespace

Invocation parseStart(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({dataDirOption(),
                       {u"language"_s, {}, u"LANGUAGE"_s},
                       {u"add-monitor"_s, {}},
                       {u"quit"_s, {}}});
    if (!parser.parse(arguments))
        return unusableLine(parser);
    const QStringList positionals = parser.positionalArguments();
    if (!positionals.isEmpty())
        return unusable(quoted(positionals.constFirst()) + u" is no command."_s);
    const auto dataDir = dataDirOf(parser);
    if (!dataDir)
        return unusableOption(parser, u"data-dir"_s);
    const auto language = optionValue<Language>(parser, u"language"_s, languageFrom);
    if (!language.isUsable)
        return unusableOption(parser, u"language"_s);
    if (const auto problem = quitContradiction(parser))
        return *problem;
    return startInvocation(parser, *dataDir, language.value);
}

} // namespace ostrel
