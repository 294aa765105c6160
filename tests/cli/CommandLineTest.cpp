#include "CommandLine.h"

#include "MonitorStore.h"
#include "Printers.h"

#include <QDir>

#include <gtest/gtest.h>

namespace ostrel::test {

namespace {

Invocation parse(const QString &line)
{
    return parseCommandLine(QStringList{QStringLiteral("ostrel")} +
                            line.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

CheckInvocation parseCheck(const QString &line)
{
    const Invocation invocation = parse(line);
    const auto *check = std::get_if<CheckInvocation>(&invocation);
    EXPECT_TRUE(check) << qPrintable(line);
    return check ? *check : CheckInvocation();
}

} // namespace

TEST(CommandLineTest, WithoutACommandItRuns)
{
    EXPECT_EQ(std::get<RunInvocation>(parse({})).dataDir, MonitorStore::defaultStorageDir());
    EXPECT_EQ(std::get<RunInvocation>(parse(QStringLiteral("--data-dir /tmp/there"))).dataDir,
              QStringLiteral("/tmp/there"));
    EXPECT_EQ(std::get<RunInvocation>(parse(QStringLiteral("--data-dir here"))).dataDir,
              QDir::current().absoluteFilePath(QStringLiteral("here")));
}

TEST(CommandLineTest, TheLanguageIsEnglishUnlessItIsChosen)
{
    EXPECT_EQ(std::get<RunInvocation>(parse({})).language, Language::english);
    EXPECT_EQ(std::get<RunInvocation>(parse(QStringLiteral("--language en"))).language,
              Language::english);
    EXPECT_EQ(std::get<RunInvocation>(parse(QStringLiteral("--language pseudo"))).language,
              Language::pseudo);
}

TEST(CommandLineTest, ACheckHasTheFormsDefaults)
{
    const CheckInvocation check = parseCheck(QStringLiteral("check https://shop.example/"));
    EXPECT_EQ(check.monitor.url, QStringLiteral("https://shop.example/"));
    EXPECT_EQ(check.monitor.type, MonitorType::http);
    EXPECT_EQ(check.monitor.method, HTTPMethod::GET);
    EXPECT_EQ(check.monitor.timeout, Seconds(30));
    EXPECT_FALSE(check.monitor.keyword);
    EXPECT_FALSE(check.monitor.responseTimeThreshold);
    EXPECT_EQ(check.format, OutputFormat::human);
}

TEST(CommandLineTest, ACheckTakesItsOptions)
{
    const CheckInvocation web = parseCheck(QStringLiteral(
        "check --method head --timeout 2.5 --keyword OK --keyword-absent --threshold 450 --json "
        "https://shop.example/"));
    EXPECT_EQ(web.monitor.method, HTTPMethod::HEAD);
    EXPECT_EQ(web.monitor.timeout, Seconds(2.5));
    EXPECT_EQ(web.monitor.keyword, QStringLiteral("OK"));
    EXPECT_FALSE(web.monitor.keywordShouldExist);
    EXPECT_EQ(web.monitor.responseTimeThreshold, Milliseconds(450));
    EXPECT_EQ(web.format, OutputFormat::json);

    const CheckInvocation port = parseCheck(QStringLiteral("check db.local --port 5432"));
    EXPECT_EQ(port.monitor.type, MonitorType::port);
    EXPECT_EQ(port.monitor.port, 5432);
}

TEST(CommandLineTest, UnusableArgumentsAreNamed)
{
    const char *const lines[] = {
        "check",
        "check a b",
        "check a --port",
        "check a --port x",
        "check a --port 0",
        "check a --port 65536",
        "check a --port 80.5",
        "check a --timeout 0",
        "check a --timeout -1",
        "check a --timeout inf",
        "check a --timeout nan",
        "check a --timeout soon",
        "check a --threshold fast",
        "check a --method PUT",
        "check a --keyword-absent",
        "check a --port 80 --keyword x",
        "check a --port 80 --method HEAD",
        "check a --unknown",
        "status --port 1",
        "status somewhere",
        "watch",
        "--data-dir",
        "--data-dir=",
        "status --data-dir=",
        "--unknown",
        "--language",
        "--language xx",
        "status --language pseudo",
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
        parseCommandLine({QStringLiteral("ostrel"), QStringLiteral("check"), QString()})));
}

TEST(CommandLineTest, HelpAndVersionAnswer)
{
    for (const char *line : {"--help", "-h", "help", "check --help", "status --help"}) {
        const auto answer = std::get<AnswerInvocation>(parse(QString::fromLatin1(line)));
        EXPECT_TRUE(answer.text.contains(QStringLiteral("--keyword-absent"))) << line;
    }
    EXPECT_TRUE(std::get<AnswerInvocation>(parse(QStringLiteral("--version")))
                    .text.startsWith(QStringLiteral("ostrel ")));
}

TEST(CommandLineTest, AKeywordMayLookLikeAnOption)
{
    const Invocation invocation =
        parseCommandLine({QStringLiteral("ostrel"), QStringLiteral("check"),
                          QStringLiteral("https://a.example"), QStringLiteral("--keyword=--help")});
    ASSERT_TRUE(std::holds_alternative<CheckInvocation>(invocation));
    EXPECT_EQ(std::get<CheckInvocation>(invocation).monitor.keyword, QStringLiteral("--help"));
}

} // namespace ostrel::test
