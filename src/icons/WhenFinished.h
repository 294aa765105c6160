#pragma once

#include <QFuture>
#include <QFutureWatcher>

#include <utility>

namespace ostrel {

/// Calls @p function with the result of @p future, through the event loop of @p context, unless
/// that has died by then or the future is cancelled. Call it on the thread of @p context.
///
/// QFuture::then with a context object can't be used where that may die first: Qt 6.4 asserts that
/// it lives.
template<typename Result, typename Function>
void whenFinished(const QFuture<Result> &future, QObject *context, Function function)
{
    auto *watcher = new QFutureWatcher<Result>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context,
                     [watcher, function = std::move(function)] {
                         watcher->deleteLater();
                         if (!watcher->isCanceled())
                             function(watcher->result());
                     });
    watcher->setFuture(future);
}

} // namespace ostrel
