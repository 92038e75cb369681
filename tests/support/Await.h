#pragma once

#include <QCoreApplication>
#include <QCoroTask>
#include <QEventLoop>

#include <exception>
#include <memory>
#include <optional>

/// Runs the event loop until the condition holds. Whatever makes it hold must wake the loop: an event, a
/// timer, a socket, or wakeMainLoop().
template <typename Condition>
void runUntil(Condition condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// Makes a waiting runUntil() look at its condition again. Callable on any thread.
inline void wakeMainLoop()
{
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] {}, Qt::QueuedConnection);
}

/// A task that has been started, and what became of it. The task runs on when this object goes.
template <typename T>
class Awaited
{
public:
    explicit Awaited(QCoro::Task<T> task) { follow(std::move(task), outcome_); }

    bool isDone() const { return outcome_->isDone; }
    bool hasFailed() const { return bool(outcome_->error); }

    /// Runs the event loop until the task is done.
    /// \returns its result, or throws what it threw
    T result() const
    {
        runUntil([this] { return isDone(); });
        if (outcome_->error)
            std::rethrow_exception(outcome_->error);
        if constexpr (!std::is_void_v<T>)
            return *outcome_->value;
    }

private:
    struct Nothing
    { };
    struct Outcome
    {
        bool isDone = false;
        std::optional<std::conditional_t<std::is_void_v<T>, Nothing, T>> value;
        std::exception_ptr error;
    };

    static QCoro::Task<> follow(QCoro::Task<T> task, std::shared_ptr<Outcome> outcome)
    {
        try {
            if constexpr (std::is_void_v<T>) {
                co_await task;
            } else {
                T value = co_await task;
                outcome->value = std::move(value);
            }
        } catch (...) {
            outcome->error = std::current_exception();
        }
        outcome->isDone = true;
    }

    std::shared_ptr<Outcome> outcome_ = std::make_shared<Outcome>();
};

/// Runs the event loop until the task is done.
/// \returns its result, or throws what it threw
template <typename T>
T finished(QCoro::Task<T> task)
{
    return Awaited<T>(std::move(task)).result();
}
