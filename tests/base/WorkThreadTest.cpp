#include "WorkThread.h"

#include "WaitFor.h"

#include <QList>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <new>
#include <semaphore>
#include <string>
#include <vector>

namespace ostrel {
namespace {

using test::waitFor;

TEST(WorkThreadTest, TasksRunInOrderOnOneOtherThread)
{
    WorkThread thread;
    QList<int> done;
    QSet<QThread *> threads;
    for (int i = 0; i < 100; ++i)
        thread.post([&, i] {
            done += i;
            threads += QThread::currentThread();
        });
    thread.run([] { return 0; }).waitForFinished();
    ASSERT_EQ(done.size(), 100);
    EXPECT_TRUE(std::ranges::is_sorted(done));
    EXPECT_EQ(threads.size(), 1);
    EXPECT_FALSE(threads.contains(QThread::currentThread()));
}

TEST(WorkThreadTest, ResultsArriveThroughFutures)
{
    WorkThread thread;
    EXPECT_EQ(thread.run([] { return 42; }).result(), 42);
}

TEST(WorkThreadTest, TheThreadIsPreparedBeforeAnythingElse)
{
    QThread *prepared = nullptr;
    WorkThread thread([&] { prepared = QThread::currentThread(); });
    EXPECT_TRUE(thread.run([&] { return prepared == QThread::currentThread(); }).result());
}

TEST(WorkThreadTest, AThrowingTaskIsCancelledAndTheNextOneRuns)
{
    WorkThread thread;
    auto failed = thread.run([]() -> int { throw std::bad_alloc(); });
    EXPECT_EQ(thread.run([] { return 1; }).result(), 1);
    EXPECT_TRUE(failed.isCanceled());
    EXPECT_TRUE(failed.isFinished());
}

TEST(WorkThreadTest, TasksPostedInSlicesTakeTurns)
{
    WorkThread thread;
    std::vector<char> order;
    std::function<void(char, int)> slice = [&](char name, int left) {
        order.push_back(name);
        if (left > 1)
            thread.queue()->post([&slice, name, left] { slice(name, left - 1); });
    };
    std::binary_semaphore bothArePosted(0);
    thread.post([&] { bothArePosted.acquire(); });
    thread.post([&] { slice('a', 3); });
    thread.post([&] { slice('b', 2); });
    bothArePosted.release();
    ASSERT_TRUE(waitFor([&] { return thread.run([&] { return order.size(); }).result() == 5; }));
    EXPECT_EQ(std::string(order.begin(), order.end()), "ababa");
}

TEST(WorkThreadTest, DestructionDropsWaitingTasks)
{
    std::binary_semaphore isFirstDone(0);
    QFuture<int> dropped;
    {
        WorkThread thread;
        thread.post([&] { isFirstDone.acquire(); });
        dropped = thread.run([] { return 1; });
        thread.post([] {});
        isFirstDone.release();
        // The first task may, but need not, end before the destructor drops the others.
    }
    EXPECT_TRUE(dropped.isFinished());
    EXPECT_FALSE(WorkThread::isAnyLeftBehind());
}

TEST(WorkThreadTest, DestructionLeavesLongTasksBehind)
{
    static std::atomic<bool> hasBegun = false;
    {
        WorkThread thread;
        thread.post([] {
            hasBegun = true;
            for (;;)
                QThread::msleep(1000);
        });
        ASSERT_TRUE(waitFor([] { return hasBegun.load(); }));
    }
    // The thread object has been destroyed, and its work never ends.
    EXPECT_TRUE(WorkThread::isAnyLeftBehind());
    std::fflush(nullptr);
}

} // namespace
} // namespace ostrel
