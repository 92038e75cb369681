#include "Launch.h"

/// Awaits the task so that what it throws is seen. Ends the program at an uncaught exception, without the
/// exception's text, which may hold what must not be logged.
static QCoro::Task<> watched(QCoro::Task<> task)
{
    try {
        co_await task;
    } catch (...) {
        qFatal("An operation that nobody awaits let an exception out");
    }
}

void launch(QCoro::Task<> task)
{
    watched(std::move(task));
}
