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

/// The work that a WorkThread has to do, in order. Any thread.
class WorkQueue
{
public:
    using Work = std::function<void()>;

    void post(Work work);

private:
    friend class WorkThread;

    /// Runs all work until the queue is closed.
    void serve();
    void close();

    std::mutex m_mutex;
    std::condition_variable m_hasChanged;
    std::deque<Work> m_waiting;
    bool m_isClosed = false;
};

/// A thread for work that takes longer than others can wait.
///
/// Work runs in the order in which it is posted. Post long work in slices, each of which posts the
/// next, so that several pieces of work make progress in turns. Any thread may post.
class WorkThread
{
public:
    using Work = WorkQueue::Work;

    /// The thread runs @p prepare before anything else, for example to lower its priority.
    explicit WorkThread(Work prepare = {});
    /// Drops waiting work, and waits at most a tenth of a second for the work that is running.
    ~WorkThread();
    WorkThread(const WorkThread &) = delete;
    WorkThread &operator=(const WorkThread &) = delete;

    /// Work that throws counts as done. What the work holds is destroyed on this object's thread,
    /// or, if the work is dropped, on the thread that drops it.
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

    /// The thread's own work posts more work here. The queue may outlive this object, and then
    /// drops whatever is posted.
    [[nodiscard]] std::shared_ptr<WorkQueue> queue() const { return m_queue; }

    /// Whether any such thread was still running when its object was destroyed. If so, the program
    /// must end without the destructors of static objects, which the work may use.
    [[nodiscard]] static bool isAnyLeftBehind();

private:
    std::shared_ptr<WorkQueue> m_queue; ///< Shared with the thread, which may outlive this object.
    std::unique_ptr<QThread> m_thread;
};

} // namespace ostrel
