#pragma once

#include <QFuture>
#include <QPromise>
#include <QThread>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <type_traits>
#include <utility>

namespace ostrel {

/// What a WorkThread is to do, in order. Any thread.
class WorkQueue
{
public:
    using Work = std::function<void()>;

    void post(Work work);

private:
    friend class WorkThread;

    /// Does all work until the queue is closed.
    void serve();
    void close();

    std::mutex m_mutex;
    std::condition_variable m_hasChanged;
    std::deque<Work> m_waiting;
    bool m_isClosed = false;
};

/// A thread of its own for work that takes longer than others can wait.
///
/// Work is done in the order in which it comes. What is long is better posted in slices, each of
/// which posts the next: then all that is under way goes on by turns. Any thread may post.
class WorkThread
{
public:
    using Work = WorkQueue::Work;

    /// The thread calls @p prepare before anything else, for example to lower its priority.
    explicit WorkThread(Work prepare = {});
    /// Drops what waits, and waits a tenth of a second at most for what is under way.
    ~WorkThread();
    WorkThread(const WorkThread &) = delete;
    WorkThread &operator=(const WorkThread &) = delete;

    /// Work that throws counts as done; what it holds is destroyed on this object's thread, or, if
    /// it is dropped, on the thread that drops it.
    void post(Work work) { m_queue->post(std::move(work)); }

    /// Posts @p function. The future finishes with its result; it is cancelled if the function
    /// throws or is dropped.
    template<typename Function>
    [[nodiscard]] QFuture<std::invoke_result_t<Function>> run(Function function)
    {
        using Result = std::invoke_result_t<Function>;
        const auto promise = std::make_shared<QPromise<Result>>();
        promise->start();
        post([promise, function = std::move(function)]() mutable {
            promise->addResult(function());
            promise->finish();
        });
        return promise->future();
    }

    /// Where the thread's own work posts more; may outlive this object, and then drops it.
    [[nodiscard]] std::shared_ptr<WorkQueue> queue() const { return m_queue; }

    /// Whether some such thread was still at work when its object was destroyed. The program then
    /// has to end without the destructors of static objects, which that work may use.
    [[nodiscard]] static bool isAnyLeftBehind();

private:
    std::shared_ptr<WorkQueue> m_queue; ///< The thread's too, which may outlive the object.
    std::unique_ptr<QThread> m_thread;
};

} // namespace ostrel
