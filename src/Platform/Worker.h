#pragma once

#include <QFuture>
#include <QPromise>
#include <QThreadPool>

#include <exception>
#include <memory>
#include <type_traits>
#include <utility>

/// Runs a function on Qt's worker pool, so that work longer than a frame never holds up the window. The
/// function gets copies only; its result, or what it throws, comes back through the future.
template <typename Function>
auto onWorker(Function function) -> QFuture<std::invoke_result_t<Function>>
{
    using Result = std::invoke_result_t<Function>;
    auto promise = std::make_shared<QPromise<Result>>();
    QFuture<Result> future = promise->future();
    promise->start();
    QThreadPool::globalInstance()->start([promise, function = std::move(function)]() mutable {
        try {
            promise->addResult(function());
        } catch (...) {
            promise->setException(std::current_exception());
        }
        promise->finish();
    });
    return future;
}

/// Lets go of something so large that even that would be felt. Whoever else shares it keeps it.
template <typename Value>
void discardOnWorker(Value value)
{
    QThreadPool::globalInstance()->start([value = std::move(value)]() mutable { value = Value(); });
}
