#include "Worker.h"

#include "support/Await.h"

#include <QCoroFuture>
#include <QThread>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

template <typename T>
QCoro::Task<T> await(QFuture<T> future)
{
    T result = co_await future;
    co_return result;
}

} // namespace

TEST(WorkerTest, BringsTheResultBackToTheCallersThread)
{
    const QThread* const caller = QThread::currentThread();
    const QThread* const worker = finished(await(onWorker([] { return QThread::currentThread(); })));
    EXPECT_NE(worker, caller);
    EXPECT_EQ(QThread::currentThread(), caller);
}

TEST(WorkerTest, BringsAnExceptionBack)
{
    const auto throwing = []() -> int { throw std::runtime_error("on the worker"); };
    EXPECT_THROW(finished(await(onWorker(throwing))), std::runtime_error);
}

TEST(WorkerTest, LetsGoOffTheCallersThread)
{
    const QThread* endedOn = nullptr;
    std::shared_ptr<int> value(new int(7), [&endedOn](const int* last) {
        endedOn = QThread::currentThread();
        delete last;
    });
    discardOnWorker(std::move(value));
    QThreadPool::globalInstance()->waitForDone();
    EXPECT_NE(endedOn, nullptr);
    EXPECT_NE(endedOn, QThread::currentThread());
}
