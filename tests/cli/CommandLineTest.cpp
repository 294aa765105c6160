#include "CommandLine.h"

#include "ForeignTexts.h"
#include "MonitorStore.h"
#include "Printers.h"

#include <QDir>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

Invocation parse(const QString &line)
{
    return parseCommandLine(QStringList{u"ostrel"_s} +
                            line.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

CheckInvocation parseCheck(const QString &line)
{
    const Invocation invocation = parse(line);
    const auto *check = std::get_if<CheckInvocation>(&invocation);
    EXPECT_TRUE(check) << qPrintable(line);
    return check ? *check : CheckInvocation();
}

/// The text that @p line prints; empty, and a failure, if it does something else.
QString answerTo(const QString &line)
{
    const Invocation invocation = parse(line);
    const auto *answer = std::get_if<AnswerInvocation>(&invocation);
    EXPECT_TRUE(answer) << qPrintable(line);
    return answer ? answer->text : QString();
}

bool fitsTheWidthOfATerminal(const QString &text)
{
    return std::ranges::all_of(text.split(u'\n'),
                               [](const QString &line) { return line.size() <= 80; });
}

} // namespace

TEST(CommandLineTest, WithoutACommandItRuns)
{
    EXPECT_EQ(std::get<RunInvocation>(parse({})).dataDir, MonitorStore::defaultStorageDir());
    EXPECT_EQ(std::get<RunInvocation>(parse(u"--data-dir /tmp/there"_s)).dataDir, u"/tmp/there"_s);
    EXPECT_EQ(std::get<RunInvocation>(parse(u"--data-dir here"_s)).dataDir,
              QDir::current().absoluteFilePath(u"here"_s));
}

TEST(CommandLineTest, TheLanguageIsEnglishUnlessAnotherIsChosen)
{
    EXPECT_EQ(std::get<RunInvocation>(parse({})).language, Language::english);
    EXPECT_EQ(std::get<RunInvocation>(parse(u"--language en"_s)).language, Language::english);
    EXPECT_EQ(std::get<RunInvocation>(parse(u"--language pseudo"_s)).language, Language::pseudo);
}

TEST(CommandLineTest, ItCanBeginWithTheFormForANewMonitor)
{
    EXPECT_FALSE(std::get<RunInvocation>(parse({})).addsMonitor);
    const auto run = std::get<RunInvocation>(parse(u"--add-monitor --data-dir /tmp/there"_s));
    EXPECT_TRUE(run.addsMonitor);
    EXPECT_EQ(run.dataDir, u"/tmp/there"_s);
}

TEST(CommandLineTest, ItCanBeADemo)
{
    EXPECT_EQ(std::get<DemoInvocation>(parse(u"--demo"_s)).language, Language::english);
    EXPECT_EQ(std::get<DemoInvocation>(parse(u"--demo --language pseudo"_s)).language,
              Language::pseudo);
}

TEST(CommandLineTest, ItCanEndTheProgramThatRuns)
{
    EXPECT_EQ(std::get<QuitInvocation>(parse(u"--quit"_s)).dataDir,
              MonitorStore::defaultStorageDir());
    EXPECT_EQ(std::get<QuitInvocation>(parse(u"--quit --data-dir /tmp/there"_s)).dataDir,
              u"/tmp/there"_s);
}

TEST(CommandLineTest, ACheckHasTheFormsDefaults)
{
    const CheckInvocation check = parseCheck(u"check https://shop.example/"_s);
    EXPECT_EQ(check.monitor.url, u"https://shop.example/"_s);
    EXPECT_EQ(check.monitor.type, MonitorType::http);
    EXPECT_EQ(check.monitor.method, HTTPMethod::GET);
    EXPECT_EQ(check.monitor.timeout, Seconds(30));
    EXPECT_FALSE(check.monitor.keyword);
    EXPECT_FALSE(check.monitor.responseTimeThreshold);
    EXPECT_EQ(check.format, OutputFormat::human);
}

TEST(CommandLineTest, ACheckTakesItsOptions)
{
    const CheckInvocation web = parseCheck(
        u"check --method head --timeout 2.5 --keyword OK --keyword-absent --threshold 450 --json "
        "https://shop.example/"_s);
    EXPECT_EQ(web.monitor.method, HTTPMethod::HEAD);
    EXPECT_EQ(web.monitor.timeout, Seconds(2.5));
    EXPECT_EQ(web.monitor.keyword, u"OK"_s);
    EXPECT_FALSE(web.monitor.keywordShouldExist);
    EXPECT_EQ(web.monitor.responseTimeThreshold, Milliseconds(450));
    EXPECT_EQ(web.format, OutputFormat::json);

    const CheckInvocation port = parseCheck(u"check db.local --port 5432"_s);
    EXPECT_EQ(port.monitor.type, MonitorType::port);
    EXPECT_EQ(port.monitor.port, 5432);
}

TEST(CommandLineTest, AnAddressIsCompletedAsInTheForm)
{
    const struct
    {
        const char *typed;
        const char *url;
        std::optional<qint64> port = {};
    } cases[] = {
        {"example.com", "https://example.com"},
        {"www.example.com/a:b?c", "https://www.example.com/a:b?c"},
        {"shop.example:8443/cart", "https://shop.example:8443/cart"},
        {"http://localhost:3000", "http://localhost:3000"},
        {"https://shop.example/?to=ftp://a.example", "https://shop.example/?to=ftp://a.example"},
        {"shop.example/?to=http://a.example", "https://shop.example/?to=http://a.example"},
        {"HTTPS://shop.example", "HTTPS://shop.example"},
        {"localhost:8080", "localhost", 8080},
        {"example.com:443", "example.com", 443},
        {"127.0.0.1:1", "127.0.0.1", 1},
        {"db:+65535", "db", 65535},
    };
    for (const auto &each : cases) {
        const Monitor monitor = parseCheck(u"check "_s + QString::fromLatin1(each.typed)).monitor;
        EXPECT_EQ(monitor.url, QString::fromLatin1(each.url)) << each.typed;
        EXPECT_EQ(monitor.port, each.port) << each.typed;
        EXPECT_EQ(monitor.type, each.port ? MonitorType::port : MonitorType::http) << each.typed;
    }
}

TEST(CommandLineTest, BlanksAroundAnAddressAreIgnored)
{
    for (const char *typed : {" example.com\n", "\thttps://example.com "}) {
        const Invocation invocation =
            parseCommandLine({u"ostrel"_s, u"check"_s, QString::fromLatin1(typed)});
        ASSERT_TRUE(std::holds_alternative<CheckInvocation>(invocation)) << typed;
        EXPECT_EQ(std::get<CheckInvocation>(invocation).monitor.url, u"https://example.com"_s);
    }
}

TEST(CommandLineTest, AnAddressThatCantBeCompletedIsRefusedWithAHint)
{
    for (const char *typed : {"localhost", "httpbin.local", "ftp://shop.example"}) {
        const Invocation invocation = parse(u"check "_s + QString::fromLatin1(typed));
        const auto *unusable = std::get_if<UnusableInvocation>(&invocation);
        ASSERT_TRUE(unusable) << typed;
        EXPECT_EQ(unusable->reason, u"'"_s + QString::fromLatin1(typed) +
                                        u"' is no web address and no HOST:PORT. "
                                        "A web address begins with https:// or "
                                        "http://."_s);
    }
}

TEST(CommandLineTest, WithAPortTheArgumentIsTheHost)
{
    const Monitor monitor = parseCheck(u"check localhost --port 22"_s).monitor;
    EXPECT_EQ(monitor.type, MonitorType::port);
    EXPECT_EQ(monitor.url, u"localhost"_s);
    EXPECT_EQ(monitor.port, 22);
}

TEST(CommandLineTest, ErrorMessagesAreFitForPeople)
{
    int complaints = 0;
    for (const ForeignText &foreign : foreignTexts()) {
        for (const QStringList &arguments :
             {QStringList{u"check"_s, u"x "_s + foreign.text},
              QStringList{u"check"_s, u"a.b"_s, foreign.text},
              QStringList{u"check"_s, u"a.b"_s, u"--timeout="_s + foreign.text},
              QStringList{u"--x"_s + foreign.text}}) {
            const Invocation invocation = parseCommandLine(QStringList{u"ostrel"_s} + arguments);
            const auto *unusable = std::get_if<UnusableInvocation>(&invocation);
            if (!unusable)
                continue;
            EXPECT_TRUE(isFitForPeople(unusable->reason)) << foreign.name;
            ++complaints;
        }
    }
    EXPECT_GE(complaints, 3 * foreignTexts().size());
}

TEST(CommandLineTest, UnusableArgumentsAreNamed)
{
    const char *const lines[] = {
        "check",
        "check a b",
        "check a.b --port",
        "check a.b --port x",
        "check a.b --port 0",
        "check a.b --port 65536",
        "check a.b --port 80.5",
        "check localhost",
        "check http",
        "check http:80",
        "check http://",
        "check https://:443",
        "check httpbin.local",
        "check ftp://shop.example",
        "check host:8080/path",
        "check [::1]:80",
        "check :80",
        "check ://shop.example",
        "check db.local:5432 --keyword x",
        "check db.local:5432 --method HEAD",
        "check db.local:5432 --threshold 5",
        "check a.b --timeout 0",
        "check a.b --timeout -1",
        "check a.b --timeout inf",
        "check a.b --timeout nan",
        "check a.b --timeout soon",
        "check a.b --threshold fast",
        "check a.b --method PUT",
        "check a.b --keyword-absent",
        "check a.b --port 80 --keyword x",
        "check a.b --port 80 --method HEAD",
        "check a.b --unknown",
        "status --port 1",
        "status somewhere",
        "watch",
        "--data-dir",
        "--data-dir=",
        "status --data-dir=",
        "export --data-dir=",
        "metrics --data-dir=",
        "list --data-dir=",
        "check-now Shop --data-dir=",
        "--unknown",
        "--language",
        "--language xx",
        "status --language pseudo",
        "status --quit",
        "check a.b --add-monitor",
        "--quit --add-monitor",
        "--demo --add-monitor",
        "--demo --quit",
        "--demo --data-dir /tmp/there",
        "status --demo",
        "--quit --language en",
        "--quit now",
        "add",
        "add a.b c.d",
        "add localhost",
        "add a.b --interval 0",
        "add a.b --interval -1",
        "add a.b --interval inf",
        "add a.b --interval often",
        "add a.b --timeout 0",
        "add a.b --method PUT",
        "add a.b --threshold 0",
        "add a.b --keyword=",
        "add a.b --keyword-absent",
        "add a.b --port 0",
        "add a.b --no-keyword",
        "add a.b --json",
        "add a.b --data-dir=",
        "add db:5432 --keyword x",
        "edit",
        "edit Shop",
        "edit Shop Blog --interval 5",
        "edit Shop --interval 0",
        "edit Shop --keyword x --no-keyword",
        "edit Shop --keyword-absent --no-keyword",
        "edit Shop --keyword-absent --keyword-present",
        "edit Shop --threshold 5 --no-threshold",
        "edit Shop --data-dir=",
        "pause",
        "pause --all",
        "pause Shop --data-dir=",
        "resume",
        "remove",
        "remove Shop --force",
        "check-now",
        "check-now Shop --port 5",
        "list Shop",
        "list --json --names",
        "list --unknown",
        "edit Shop --unknown",
        "import list.txt --unknown",
    };
    for (const char *line : lines) {
        const Invocation invocation = parse(QString::fromLatin1(line));
        const auto *unusable = std::get_if<UnusableInvocation>(&invocation);
        ASSERT_TRUE(unusable) << line;
        EXPECT_FALSE(unusable->reason.isEmpty()) << line;
    }
}

TEST(CommandLineTest, AnEmptyAddressIsUnusable)
{
    EXPECT_TRUE(std::holds_alternative<UnusableInvocation>(
        parseCommandLine({u"ostrel"_s, u"check"_s, QString()})));
}

TEST(CommandLineTest, MonitorsToChangeAreTakenAsTyped)
{
    const auto pause = std::get<SwitchInvocation>(
        parseCommandLine({u"ostrel"_s, u"pause"_s, u"My blog"_s, u"--"_s, u"-x"_s}));
    EXPECT_EQ(pause.kind, MonitorChange::Kind::pause);
    EXPECT_EQ(pause.names, (QStringList{u"My blog"_s, u"-x"_s}));
    EXPECT_EQ(pause.dataDir, MonitorStore::defaultStorageDir());
    EXPECT_EQ(std::get<SwitchInvocation>(parse(u"resume a --data-dir /tmp/there"_s)).dataDir,
              u"/tmp/there"_s);
    EXPECT_EQ(std::get<SwitchInvocation>(parse(u"remove a"_s)).kind, MonitorChange::Kind::remove);
    const auto check = std::get<CheckNowInvocation>(parse(u"check-now a b --json"_s));
    EXPECT_EQ(check.names, (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(check.format, OutputFormat::json);
}

TEST(CommandLineTest, AnEditTakesItsOptions)
{
    const auto edit = std::get<EditInvocation>(
        parse(u"edit Shop --name Store --address db:5 --interval 7 --method head --timeout 2 "
              "--keyword OK --keyword-present --threshold 5"_s));
    EXPECT_EQ(edit.name, u"Shop"_s);
    EXPECT_EQ(edit.options, (MonitorOptions{.name = u"Store"_s,
                                            .address = u"db:5"_s,
                                            .interval = Seconds(7),
                                            .method = HTTPMethod::HEAD,
                                            .timeout = Seconds(2),
                                            .keyword = u"OK"_s,
                                            .keywordShouldExist = true,
                                            .threshold = Milliseconds(5)}));
    const auto clear =
        std::get<EditInvocation>(parse(u"edit Shop --no-keyword --no-threshold --name="_s));
    EXPECT_EQ(
        clear.options,
        (MonitorOptions{.name = QString(), .keyword = QString(), .threshold = Milliseconds(0)}));
}

TEST(CommandLineTest, AStatusIsFollowedOnRequest)
{
    EXPECT_FALSE(std::get<StatusInvocation>(parse(u"status"_s)).isFollowed);
    EXPECT_TRUE(std::get<StatusInvocation>(parse(u"status --watch --json"_s)).isFollowed);
}

TEST(CommandLineTest, AnExportIsJsonUnlessAnotherFormatIsChosen)
{
    EXPECT_EQ(std::get<ExportInvocation>(parse(u"export"_s)).format, ExportFormat::json);
    EXPECT_EQ(std::get<ExportInvocation>(parse(u"export --format json"_s)).format,
              ExportFormat::json);
    EXPECT_EQ(std::get<ExportInvocation>(parse(u"export --format csv"_s)).format,
              ExportFormat::csv);
}

TEST(CommandLineTest, AListHasItsFormats)
{
    EXPECT_EQ(std::get<ListInvocation>(parse(u"list"_s)).format, ListFormat::human);
    EXPECT_EQ(std::get<ListInvocation>(parse(u"list --json"_s)).format, ListFormat::json);
    EXPECT_EQ(std::get<ListInvocation>(parse(u"list --names"_s)).format, ListFormat::names);
}

TEST(CommandLineTest, TheGeneralHelpFitsOneScreenAndNamesEveryCommand)
{
    const QString text = answerTo(u"--help"_s);
    EXPECT_LE(text.count(u'\n'), 24);
    EXPECT_TRUE(fitsTheWidthOfATerminal(text));
    for (const Command &command : allCommands())
        EXPECT_TRUE(text.contains(u"\n  "_s + command.name + u' ')) << qPrintable(command.name);
    for (const char *line : {"-h", "help", "unknown --help"})
        EXPECT_EQ(answerTo(QString::fromLatin1(line)), text) << line;
}

TEST(CommandLineTest, EveryCommandExplainsItself)
{
    for (const Command &command : allCommands()) {
        const QString text = answerTo(command.name + u" --help"_s);
        SCOPED_TRACE(qPrintable(command.name));
        EXPECT_TRUE(text.startsWith(u"Usage: ostrel "_s + command.name));
        EXPECT_TRUE(text.contains(u"\nOptions:\n"_s));
        EXPECT_TRUE(text.contains(u"\nExamples:\n  ostrel "_s + command.name));
        EXPECT_TRUE(text.contains(u"\nExit status: 0 "_s));
        EXPECT_TRUE(text.endsWith(u".\n"_s));
        EXPECT_TRUE(fitsTheWidthOfATerminal(text));
        EXPECT_EQ(answerTo(command.name + u" -h"_s), text);
        EXPECT_EQ(answerTo(command.name + u" x --help"_s), text);
        EXPECT_EQ(answerTo(u"help "_s + command.name), text);
    }
}

TEST(CommandLineTest, AnUnknownCommandIsNamed)
{
    for (const char *line : {"watch", "help watch"}) {
        const auto unusable = std::get<UnusableInvocation>(parse(QString::fromLatin1(line)));
        EXPECT_EQ(unusable.reason, u"'watch' is no command."_s) << line;
        EXPECT_EQ(unusable.command, QString()) << line;
    }
}

TEST(CommandLineTest, UnusableArgumentsOfACommandNameIt)
{
    EXPECT_EQ(std::get<UnusableInvocation>(parse(u"status --unknown"_s)).command, u"status"_s);
    EXPECT_EQ(std::get<UnusableInvocation>(parse(u"--unknown"_s)).command, QString());
}

TEST(CommandLineTest, TheVersionIsPrinted)
{
    EXPECT_TRUE(answerTo(u"--version"_s).startsWith(u"ostrel "_s));
    EXPECT_EQ(answerTo(u"-v"_s), answerTo(u"--version"_s));
}

TEST(CommandLineTest, AKeywordMayLookLikeAnOption)
{
    const Invocation invocation =
        parseCommandLine({u"ostrel"_s, u"check"_s, u"https://a.example"_s, u"--keyword=--help"_s});
    ASSERT_TRUE(std::holds_alternative<CheckInvocation>(invocation));
    EXPECT_EQ(std::get<CheckInvocation>(invocation).monitor.keyword, u"--help"_s);
}

} // namespace ostrel::test
