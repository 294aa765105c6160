#pragma once

#include "Network.h"
#include "WorkThread.h"

#include <QFuture>
#include <QPromise>

#include <exception>
#include <memory>
#include <type_traits>
#include <utility>

namespace ostrel {

/// The thread on which pictures and pages are read and the icons' files are read and written, so
/// that no site's picture takes time from a check or from what is painted. Any thread may ask it;
/// it does one thing after the other.
class IconWork
{
public:
    /// The thread calls @p prepare first.
    explicit IconWork(WorkThread::Work prepare = {})
        : m_thread(std::move(prepare))
    {
    }

    /// Does @p work some time; it is no matter if that fails.
    void post(WorkThread::Work work) { m_thread.post(std::move(work)); }

    /// What @p work makes. A result that is empty where it throws, as for lack of memory; cancelled
    /// where this object ends first.
    template<typename Work>
    [[nodiscard]] auto run(Work work)
    {
        return m_thread.run([work = std::move(work)] { return quietly(work); });
    }

    /// What @p reader makes of @p answer's result, on the same terms; empty if the answer is
    /// cancelled.
    template<typename Reader>
    [[nodiscard]] auto read(QFuture<HttpResult> answer, Reader reader)
    {
        using Result = std::invoke_result_t<Reader, const HttpResult &>;
        const auto promise = std::make_shared<QPromise<Result>>();
        promise->start();
        answer
            .then([queue = m_thread.queue(), promise,
                   reader = std::move(reader)](const HttpResult &result) {
                queue->post([promise, reader, result] {
                    promise->addResult(quietly([&] { return reader(result); }));
                    promise->finish();
                });
            })
            .onCanceled([promise] {
                promise->addResult(Result());
                promise->finish();
            });
        return promise->future();
    }

private:
    template<typename Work>
    static std::invoke_result_t<Work> quietly(const Work &work)
    {
        try {
            return work();
        } catch (const std::exception &) {
            return {};
        }
    }

    WorkThread m_thread;
};

} // namespace ostrel
