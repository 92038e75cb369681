#pragma once

#include <httplib.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

namespace bridge {

/// A thread for every open connection, so that any number of idle ones (up to the limit) never makes a busy
/// one wait. Threads are started when needed and reused; where the system has no more of them, connections
/// wait for those that there are.
class ConnectionThreads : public httplib::TaskQueue
{
public:
    explicit ConnectionThreads(std::size_t limit);

    void enqueue(std::function<void()> job) override;
    void shutdown() override;

private:
    bool startThread();
    void work();

    const std::size_t limit_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::function<void()>> jobs_;
    std::size_t idle_ = 0;
    bool isOver_ = false;
    std::vector<std::thread> threads_;
};

} // namespace bridge
