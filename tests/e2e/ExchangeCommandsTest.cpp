#include "ExpectedMonitor.h"
#include "HostileBehaviours.h"
#include "HostileServer.h"
#include "OstrelProgram.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using Outcome = OstrelProgram::Outcome;

/// Export, import and metrics with a program that watches (true) and without one.
class ExchangeCommandsTest : public testing::TestWithParam<bool>
{
protected:
    void SetUp() override
    {
        shop.isEnabled = false;
        program.writeMonitors({shop});
        ASSERT_TRUE(!GetParam() || program.start());
    }
    void TearDown() override { EXPECT_TRUE(!program.isRunning() || program.stop() == 0); }

    void writeFile(const QByteArray &content) const
    {
        QFile target(file);
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(content);
    }
    [[nodiscard]] QStringList names() const
    {
        QStringList names;
        for (const Monitor &monitor : program.readMonitors().value_or(QList<Monitor>()))
            names += monitor.name;
        return names;
    }
    [[nodiscard]] std::size_t checkCount(const QString &name) const
    {
        const auto monitors = program.readMonitors().value_or(QList<Monitor>());
        const auto found = std::ranges::find(monitors, name, &Monitor::name);
        const auto checks = program.readChecks();
        return checks && found != monitors.end() ? checks->value(found->id).size() : 0;
    }

    const HostileServer server{answerWith("OK")};
    Monitor shop = webMonitor(u"Shop"_s, server.url());
    OstrelProgram program;
    const QString file = program.homeFile(u"file"_s);
};

INSTANTIATE_TEST_SUITE_P(Commands, ExchangeCommandsTest, testing::Bool(), [](const auto &with) {
    return with.param ? "WhileAProgramWatches" : "OnTheFiles";
});

} // namespace

TEST_P(ExchangeCommandsTest, ImportedMonitorsAreThereAndWatched)
{
    writeFile(server.url() + "new\tNew\n127.0.0.1:1\n");
    const Outcome tried = program.run({u"import"_s, file, u"--dry-run"_s});
    EXPECT_EQ(tried.exitCode, 0) << tried.errors.constData();
    EXPECT_EQ(names(), QStringList{u"Shop"_s});

    const Outcome done = program.run({u"import"_s, file});
    EXPECT_EQ(done.exitCode, 0) << done.errors.constData();
    EXPECT_EQ(done.output, tried.output);
    EXPECT_EQ(names(), (QStringList{u"Shop"_s, u"New"_s, u"127.0.0.1:1"_s}));
    EXPECT_TRUE(!GetParam() || waitFor([&] { return checkCount(u"New"_s) > 0; }));
}

TEST_P(ExchangeCommandsTest, WhatWasExportedComesBack)
{
    ASSERT_EQ(program.run({u"check-now"_s, u"Shop"_s}).exitCode, 0);
    ASSERT_EQ(program.run({u"export"_s, file, u"--history"_s}).exitCode, 0);
    ASSERT_EQ(program.run({u"remove"_s, u"Shop"_s}).exitCode, 0);
    ASSERT_TRUE(names().isEmpty());
    EXPECT_EQ(program.run({u"import"_s, file}).exitCode, 0);
    EXPECT_EQ(names(), QStringList{u"Shop"_s});
    EXPECT_EQ(checkCount(u"Shop"_s), 1U);
}

TEST_P(ExchangeCommandsTest, NothingIsOverwrittenUnasked)
{
    ASSERT_EQ(program.run({u"export"_s, file}).exitCode, 0);
    const Outcome again = program.run({u"export"_s, file});
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_EQ(again.errors.count('\n'), 1);
    ASSERT_EQ(program.run({u"edit"_s, u"Shop"_s, u"--name"_s, u"Mine"_s}).exitCode, 0);
    const Outcome refused = program.run({u"import"_s, file});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.errors.count('\n'), 1);
    EXPECT_EQ(names(), QStringList{u"Mine"_s});
    EXPECT_EQ(program.run({u"import"_s, file, u"--replace"_s}).exitCode, 0);
    EXPECT_EQ(names(), QStringList{u"Shop"_s});
}

TEST_P(ExchangeCommandsTest, BadInputIsOneLineAndChangesNothing)
{
    writeFile("nonsense\n");
    const QList<QStringList> lines = {
        {u"import"_s, file},
        {u"import"_s, program.homeFile(u"missing"_s)},
        {u"import"_s},
        {u"import"_s, file, u"--copy"_s, u"--replace"_s},
        {u"export"_s, u"--format"_s, u"xml"_s},
        {u"export"_s, u"--format"_s, u"prometheus"_s},
        {u"metrics"_s, u"--history"_s},
    };
    for (const QStringList &line : lines) {
        const Outcome outcome = program.run(line);
        EXPECT_EQ(outcome.exitCode, 2) << qPrintable(line.join(u' '));
        EXPECT_EQ(outcome.errors.count('\n'), 1) << outcome.errors.constData();
        EXPECT_TRUE(outcome.output.isEmpty()) << outcome.output.constData();
    }
    EXPECT_EQ(names(), QStringList{u"Shop"_s});
}

TEST_P(ExchangeCommandsTest, StandardOutputHoldsOnlyTheData)
{
    const Outcome exported = program.run({u"export"_s});
    EXPECT_EQ(exported.exitCode, 0);
    EXPECT_EQ(QJsonDocument::fromJson(exported.output)[u"format"_s].toString(), u"ostrel"_s);
    EXPECT_TRUE(exported.errors.isEmpty());
    EXPECT_TRUE(program.run({u"export"_s, u"--format"_s, u"csv"_s}).output.endsWith("\r\n"));
    EXPECT_TRUE(program.run({u"metrics"_s}).output.endsWith("# EOF\n"));
}

} // namespace ostrel::test
