#include "FreedesktopTerminationSignal.h"

#include "BoundProcess.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace ostrel::test {
namespace {

struct SignalCase
{
    const char *name;
    int number;
};

void PrintTo(const SignalCase &sample, std::ostream *out)
{
    *out << sample.name;
}

class FreedesktopTerminationSignalTest : public testing::TestWithParam<SignalCase>
{
protected:
    void startHelper(int requests)
    {
        m_helper.start(u"" OSTREL_SIGNALS_HELPER ""_s, {QString::number(requests)});
        ASSERT_EQ(m_helper.nextLine(), "ready");
    }
    void sendSignal() { ::kill(static_cast<pid_t>(m_helper.processId()), GetParam().number); }

    BoundProcess m_helper;
};

TEST_P(FreedesktopTerminationSignalTest, EndsTheProgramCleanly)
{
    startHelper(1);
    sendSignal();
    EXPECT_EQ(m_helper.nextLine(), "asked");
    EXPECT_EQ(m_helper.nextLine(), "ended");
    ASSERT_TRUE(m_helper.waitForFinished());
    EXPECT_EQ(m_helper.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_helper.exitCode(), 0);
}

TEST_P(FreedesktopTerminationSignalTest, ReportsASecondSignalToo)
{
    startHelper(2);
    sendSignal();
    ASSERT_EQ(m_helper.nextLine(), "asked");
    sendSignal();
    EXPECT_EQ(m_helper.nextLine(), "asked");
    EXPECT_EQ(m_helper.nextLine(), "ended");
}

INSTANTIATE_TEST_SUITE_P(Signals, FreedesktopTerminationSignalTest,
                         testing::Values(SignalCase{"Terminate", SIGTERM},
                                         SignalCase{"Interrupt", SIGINT},
                                         SignalCase{"HangUp", SIGHUP}),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(TerminationSignalTest, SurvivesAFloodOfSignals)
{
    BoundProcess helper;
    helper.start(u"" OSTREL_SIGNALS_HELPER ""_s, {u"1"_s});
    ASSERT_EQ(helper.nextLine(), "ready");
    for (int i = 0; i < 1000; ++i)
        ::kill(static_cast<pid_t>(helper.processId()), SIGTERM);
    ASSERT_TRUE(helper.waitForFinished());
    EXPECT_EQ(helper.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(helper.exitCode(), 0);
}

TEST(TerminationSignalTest, KeepsTheHangUpIgnoredIfItWas)
{
    std::signal(SIGHUP, SIG_IGN);
    const FreedesktopTerminationSignal signal;
    struct sigaction action = {};
    ::sigaction(SIGHUP, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_IGN);
}

TEST(TerminationSignalTest, RestoresTheSignalHandlers)
{
    std::signal(SIGTERM, SIG_IGN);
    {
        const FreedesktopTerminationSignal signal;
    }
    struct sigaction action = {};
    ::sigaction(SIGTERM, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_IGN);
}

TEST(TerminationSignalTest, FurtherSignalsDontKillAProgramThatEndsBecauseOfOne)
{
    {
        FreedesktopTerminationSignal signal;
        bool isRequested = false;
        QObject::connect(&signal, &TerminationSignal::terminationRequested, &signal,
                         [&] { isRequested = true; });
        ::raise(SIGTERM);
        ASSERT_TRUE(waitFor([&] { return isRequested; }));
    }
    for (const int signalNumber : {SIGTERM, SIGINT, SIGHUP}) {
        ::raise(signalNumber);
        std::signal(signalNumber, SIG_DFL);
    }
}

} // namespace
} // namespace ostrel::test
