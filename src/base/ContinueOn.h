#pragma once

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>
#include <QPromise>

#include <exception>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace ostrel {

/// Calls @p function with @p future itself once that has finished, with a result or cancelled. The
/// call comes on the thread of @p context, which must be the calling thread, and always from its
/// event loop. If @p context dies first, the function is never called. It may not throw.
template<typename T, typename Function>
void whenFinished(QFuture<T> future, QObject *context, Function function)
{
    auto *watcher = new QFutureWatcher<T>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context,
                     [watcher, function = std::move(function)]() mutable {
                         watcher->deleteLater();
                         function(watcher->future());
                     });
    watcher->setFuture(std::move(future));
}

namespace detail {

/// Finishes @p promise with the result of @p function, called with @p future's result. If the
/// future was cancelled or the function throws, the promise is left unfinished, which cancels it in
/// the end.
template<typename Result, typename T, typename Function>
void fulfil(QPromise<Result> &promise, const QFuture<T> &future, Function &function)
try {
    if (future.isCanceled())
        return;
    if constexpr (std::is_void_v<T> && std::is_void_v<Result>) {
        function();
    } else if constexpr (std::is_void_v<T>) {
        promise.addResult(function());
    } else if constexpr (std::is_void_v<Result>) {
        function(future.result());
    } else {
        promise.addResult(function(future.result()));
    }
    promise.finish();
} catch (const std::exception &) {
    return;
}

template<typename Function, typename T>
struct Continued
{
    using type = std::invoke_result_t<Function, T>;
};
template<typename Function>
struct Continued<Function, void>
{
    using type = std::invoke_result_t<Function>;
};

} // namespace detail

/// Calls @p function with @p future's result on the thread of @p context, which must be the calling
/// thread, and always from its event loop. If @p context dies first, or the future is cancelled,
/// the function is never called and the returned future is cancelled. It is also cancelled if the
/// function throws.
///
/// Use this instead of QFuture::then(context, …): that of Qt 6.4 asserts that the context is alive.
template<typename T, typename Function>
QFuture<typename detail::Continued<Function, T>::type>
continueOn(QFuture<T> future, QObject *context, Function function)
{
    using Result = typename detail::Continued<Function, T>::type;
    auto promise = std::make_shared<QPromise<Result>>();
    promise->start();
    auto continued = promise->future();
    whenFinished(std::move(future), context,
                 [promise = std::move(promise),
                  function = std::move(function)](const QFuture<T> &finished) mutable {
                     detail::fulfil(*promise, finished, function);
                 });
    return continued;
}

} // namespace ostrel
