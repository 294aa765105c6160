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

/// The thread that decodes pictures, parses pages, and reads and writes the icons' files, so that
/// no site's picture delays a check or painting. Any thread may post to it; its work runs in order.
class IconWork
{
public:
    /// The thread runs @p prepare first.
    explicit IconWork(WorkThread::Work prepare = {})
        : m_thread(std::move(prepare))
    {
    }

    /// Runs @p work at some time; a failure is ignored.
    void post(WorkThread::Work work) { m_thread.post(std::move(work)); }

    /// The result of @p work. An empty result if it throws, for example if there isn't enough
    /// memory; cancelled if this object is destroyed first.
    template<typename Work>
    [[nodiscard]] auto run(Work work)
    {
        return m_thread.run([work = std::move(work)] { return quietly(work); });
    }

    /// The result of @p reader for @p answer's result, with the same rules; empty if the answer is
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
