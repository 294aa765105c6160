#include "IconWork.h"

#include "Printers.h"

#include <QThread>

#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <stdexcept>

namespace ostrel {
namespace {

TEST(IconWorkTest, IsDoneOnAThreadOfItsOwnThatIsPreparedFirst)
{
    QThread *prepared = nullptr;
    IconWork work([&] { prepared = QThread::currentThread(); });
    EXPECT_TRUE(work.run([&] { return QThread::currentThread() == prepared; }).result());
    EXPECT_NE(prepared, QThread::currentThread());
}

TEST(IconWorkTest, AThrowingTaskHasAnEmptyResult)
{
    IconWork work;
    const auto failed = work.run([]() -> std::optional<int> { throw std::bad_alloc(); });
    EXPECT_EQ(failed.result(), std::nullopt);
    work.post([] { throw std::runtime_error("no matter"); });
    EXPECT_EQ(work.run([] { return std::optional(1); }).result(), 1);
}

TEST(IconWorkTest, AnAnswerWhoseReadingThrowsHasAnEmptyResult)
{
    IconWork work;
    const auto failed = work.read(
        QtFuture::makeReadyFuture(HttpResult()),
        [](const HttpResult & /*answer*/) -> std::optional<int> { throw std::bad_alloc(); });
    EXPECT_EQ(failed.result(), std::nullopt);
}

TEST(IconWorkTest, AnAnswerThatIsCancelledHasAnEmptyResult)
{
    IconWork work;
    QFuture<int> result;
    {
        QPromise<HttpResult> answer;
        answer.start();
        result =
            work.read(answer.future(), [](const HttpResult &given) { return given.statusCode; });
    }
    ASSERT_TRUE(result.isFinished());
    ASSERT_FALSE(result.isCanceled());
    EXPECT_EQ(result.result(), 0);
}

TEST(IconWorkTest, AnAnswerMayComeAfterDestruction)
{
    QFuture<int> result;
    {
        QPromise<HttpResult> answer;
        answer.start();
        {
            IconWork work;
            result = work.read(answer.future(),
                               [](const HttpResult &given) { return given.statusCode; });
        }
        answer.addResult(HttpResult());
        answer.finish();
    }
    EXPECT_TRUE(result.isFinished());
    EXPECT_TRUE(result.isCanceled());
}

} // namespace
} // namespace ostrel
