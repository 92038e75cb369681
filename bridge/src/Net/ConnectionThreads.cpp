#include "Net/ConnectionThreads.h"

#include <exception>

namespace bridge {

ConnectionThreads::ConnectionThreads(std::size_t limit) : limit_(limit)
{
    threads_.reserve(limit);
}

void ConnectionThreads::enqueue(std::function<void()> job)
{
    std::unique_lock lock(mutex_);
    try {
        jobs_.emplace_back();
    } catch (const std::bad_alloc&) {
        // Without memory to keep it in, it is done at once; whoever comes next waits in the system's queue.
        lock.unlock();
        job();
        return;
    }
    jobs_.back() = std::move(job);
    const bool isOneMoreWanted = idle_ < jobs_.size() && threads_.size() < limit_;
    if (!isOneMoreWanted || !startThread())
        wake_.notify_one();
}

/// \returns whether the system had one left, and memory for it; the threads that there are do the work
/// otherwise
bool ConnectionThreads::startThread()
{
    try {
        threads_.emplace_back([this] { work(); });
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void ConnectionThreads::shutdown()
{
    {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
        wake_.notify_all();
    }
    for (std::thread& thread : threads_)
        thread.join();
}

void ConnectionThreads::work()
{
    std::unique_lock lock(mutex_);
    for (;;) {
        ++idle_;
        wake_.wait(lock, [this] { return isOver_ || !jobs_.empty(); });
        --idle_;
        if (jobs_.empty())
            return;
        const std::function<void()> job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        job();
        lock.lock();
    }
}

} // namespace bridge
