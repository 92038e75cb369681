#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace bridge {

/// A thread that does a piece of work at once and then again after every interval, until it goes. Work that
/// fails is tried again at the next turn.
class Housekeeper
{
public:
    Housekeeper(std::function<void()> work, std::chrono::seconds interval);
    ~Housekeeper();

private:
    void keepHouse();

    const std::function<void()> work_;
    const std::chrono::seconds interval_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool isOver_ = false;
    std::thread thread_;
};

} // namespace bridge
