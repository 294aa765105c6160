#pragma once

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>
#include <QPromise>

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace ostrel {

namespace detail {

/// Finishes @p promise with what @p function makes of @p future's result; leaves it, and so cancels
/// it in the end, where that future was cancelled.
template<typename Result, typename T, typename Function>
void fulfil(QPromise<Result> &promise, const QFuture<T> &future, Function &function)
{
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

/// Calls @p function with @p future's result on the thread of @p context, which is the calling one,
/// always from its event loop. Where @p context dies first, or the future is cancelled, the
/// function is never called and the future that is returned is cancelled.
///
/// QFuture::then(context, …) of Qt 6.4 asserts that the context is alive.
template<typename T, typename Function>
QFuture<typename detail::Continued<Function, T>::type>
continueOn(QFuture<T> future, QObject *context, Function function)
{
    using Result = typename detail::Continued<Function, T>::type;
    const auto promise = std::make_shared<QPromise<Result>>();
    promise->start();
    auto continued = promise->future();
    auto *watcher = new QFutureWatcher<T>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context,
                     [watcher, promise, function = std::move(function)]() mutable {
                         watcher->deleteLater();
                         detail::fulfil(*promise, watcher->future(), function);
                     });
    watcher->setFuture(std::move(future));
    return continued;
}

} // namespace ostrel
