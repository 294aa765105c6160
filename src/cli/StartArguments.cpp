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

/// Complains about one of @p others if it is given together with @p option.
std::optional<UnusableInvocation> contradictionTo(const QCommandLineParser &parser,
                                                  const QString &option, const QStringList &others)
{
    for (const QString &name : others) {
        if (parser.isSet(option) && parser.isSet(name))
            return unusable(u"--"_s + name + u" doesn't go with --"_s + option + u'.');
    }
    return std::nullopt;
}

/// Complains about options that don't go together.
std::optional<UnusableInvocation> contradiction(const QCommandLineParser &parser)
{
    if (auto problem = contradictionTo(parser, u"quit"_s, {u"add-monitor"_s, u"language"_s}))
        return problem;
    return contradictionTo(parser, u"demo"_s, {u"add-monitor"_s, u"data-dir"_s, u"quit"_s});
}

/// The invocation of a line whose values are usable.
Invocation startInvocation(const QCommandLineParser &parser, const QString &dataDir,
                           std::optional<Language> language)
{
    if (parser.isSet(u"quit"_s))
        return QuitInvocation{.dataDir = dataDir};
    if (parser.isSet(u"demo"_s))
        return DemoInvocation{.language = language.value_or(Language::english)};
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
                       {u"demo"_s, {}},
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
    if (const auto problem = contradiction(parser))
        return *problem;
    return startInvocation(parser, *dataDir, language.value);
}

} // namespace ostrel
