#pragma once

#include <QFutureWatcher>
#include <QPromise>
#include <QThreadPool>

#include <exception>
#include <memory>
#include <type_traits>
#include <utility>

/// Runs a function on a thread of the pool. The function gets copies only; its result, or what it throws,
/// comes back through the future.
template <typename Function>
auto onPool(QThreadPool& pool, Function function) -> QFuture<std::invoke_result_t<Function>>
{
    using Result = std::invoke_result_t<Function>;
    auto promise = std::make_shared<QPromise<Result>>();
    QFuture<Result> future = promise->future();
    promise->start();
    pool.start([promise, function = std::move(function)]() mutable {
        try {
            promise->addResult(function());
        } catch (...) {
            promise->setException(std::current_exception());
        }
        promise->finish();
    });
    return future;
}

/// Runs a function on Qt's worker pool, so that work longer than a frame never holds up the window.
template <typename Function>
auto onWorker(Function function) -> QFuture<std::invoke_result_t<Function>>
{
    return onPool(*QThreadPool::globalInstance(), std::move(function));
}

/// So many disks may hang before files on others have to wait for them.
constexpr int mostDiskThreads = 16;

/// The threads on which onDisk() runs.
QThreadPool& diskPool();

/// Runs a function that waits for a disk. One that hangs, as the mount of a server that is away does, holds
/// up neither the window nor the work on Qt's pool nor the end of the program.
template <typename Function>
auto onDisk(Function function) -> QFuture<std::invoke_result_t<Function>>
{
    return onPool(diskPool(), std::move(function));
}

/// Calls a function through the event loop of an object, unless that goes first, once a future has finished.
template <typename Result, typename Function>
void whenFinished(const QFuture<Result>& future, QObject* context, Function function)
{
    auto* watcher = new QFutureWatcher<Result>(context);
    const auto tell = [watcher, function = std::move(function)]() mutable {
        watcher->deleteLater();
        function();
    };
    QObject::connect(watcher, &QFutureWatcher<Result>::finished, context, tell);
    watcher->setFuture(future);
}

/// Lets go of something so large that even that would be felt. Whoever else shares it keeps it.
template <typename Value>
void discardOnWorker(Value value)
{
    QThreadPool::globalInstance()->start([value = std::move(value)]() mutable { value = Value(); });
}
