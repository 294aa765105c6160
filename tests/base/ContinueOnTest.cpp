#include "ContinueOn.h"

#include "WaitFor.h"

#include <QThread>

#include <gtest/gtest.h>

#include <memory>
#include <new>

namespace ostrel::test {

TEST(ContinueOnTest, AFinishedFutureContinuesFromTheEventLoop)
{
    QObject context;
    const auto continued =
        continueOn(QtFuture::makeReadyFuture(20), &context, [](int value) { return value + 1; });
    EXPECT_FALSE(continued.isFinished());
    ASSERT_TRUE(waitFor([&] { return continued.isFinished(); }));
    EXPECT_EQ(continued.result(), 21);
}

TEST(ContinueOnTest, AResultFromAnotherThreadContinuesOnTheContextsThread)
{
    QObject context;
    QPromise<int> promise;
    promise.start();
    const QThread *thread = nullptr;
    const auto continued = continueOn(promise.future(), &context, [&](int value) {
        thread = QThread::currentThread();
        return value + 1;
    });
    const std::unique_ptr<QThread> worker(QThread::create([&promise] {
        promise.addResult(20);
        promise.finish();
    }));
    worker->start();

    ASSERT_TRUE(waitFor([&] { return continued.isFinished(); }));
    EXPECT_EQ(continued.result(), 21);
    EXPECT_EQ(thread, QThread::currentThread());
    worker->wait();
}

TEST(ContinueOnTest, AResultWhoseContextHasDiedIsDroppedAndWhatFollowsIsCancelled)
{
    auto context = std::make_unique<QObject>();
    QPromise<int> promise;
    promise.start();
    bool isCalled = false;
    const auto continued =
        continueOn(promise.future(), context.get(), [&](int) { isCalled = true; });
    context.reset();
    EXPECT_TRUE(continued.isCanceled());

    promise.addResult(20);
    promise.finish();
    QCoreApplication::processEvents();
    EXPECT_FALSE(isCalled);
}

TEST(ContinueOnTest, ACancelledFutureCancelsWhatFollows)
{
    QObject context;
    bool isCalled = false;
    QFuture<void> continued;
    {
        QPromise<int> promise;
        promise.start();
        continued = continueOn(promise.future(), &context, [&](int) { isCalled = true; });
    }
    ASSERT_TRUE(waitFor([&] { return continued.isFinished(); }));
    EXPECT_TRUE(continued.isCanceled());
    EXPECT_FALSE(isCalled);
}

TEST(ContinueOnTest, ContinuationsChain)
{
    QObject context;
    QPromise<void> promise;
    promise.start();
    int calls = 0;
    const auto first = continueOn(promise.future(), &context, [&] { ++calls; });
    const auto second = continueOn(first, &context, [&] { return ++calls; });
    promise.finish();
    ASSERT_TRUE(waitFor([&] { return second.isFinished(); }));
    EXPECT_EQ(second.result(), 2);
}

TEST(ContinueOnTest, AThrowingContinuationCancelsWhatFollows)
{
    QObject context;
    const auto continued = continueOn(QtFuture::makeReadyFuture(20), &context,
                                      [](int) -> int { throw std::bad_alloc(); });
    ASSERT_TRUE(waitFor([&] { return continued.isFinished(); }));
    EXPECT_TRUE(continued.isCanceled());
}

TEST(ContinueOnTest, ACancelledFutureIsReportedAsFinishedToo)
{
    QObject context;
    int ends = 0;
    bool wasCancelled = false;
    {
        QPromise<int> promise;
        promise.start();
        whenFinished(promise.future(), &context, [&](const QFuture<int> &future) {
            ++ends;
            wasCancelled = future.isCanceled();
        });
    }
    ASSERT_TRUE(waitFor([&] { return ends > 0; }));
    EXPECT_TRUE(wasCancelled);
    EXPECT_EQ(ends, 1);
}

} // namespace ostrel::test
